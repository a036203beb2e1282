// SPDX-License-Identifier: MIT
// Between bitmaps and the clipboard's media types.
#include "imagefile/clipboard_picture.h"

#include "imagefile/bmp.h"
#include "imagefile/picture_files.h"
#include "imagefile/png.h"
#include "platform/clipboard.h"
#include <new>

namespace kelu {
namespace {

constexpr const char* type_png = "image/png";
/// Names that programs have for a Windows bitmap; the first is offered.
constexpr const char* wanted_types[] = {type_png, "image/bmp", "image/x-bmp", "image/x-MS-bmp"};
constexpr const char* type_bmp = wanted_types[1];

void strip_top_bytes(Bitmap& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            row(picture, y)[x] &= 0xffffff;
    }
}

} // namespace

bool copy_to_clipboard(BITMAP* picture)
{
    if (!picture) return false;
    Bitmap copy(picture->w, picture->h);
    if (!copy) return false;
    blit(picture, copy, 0, 0, 0, 0, picture->w, picture->h);
    strip_top_bytes(copy);
    Bytes png, bmp;
    if (encode_png(copy, nullptr, png) != 0) return false;
    encode_bmp(copy, bmp);
    std::vector<platform::ClipboardItem> items;
    items.push_back({type_png, std::move(png)});
    items.push_back({type_bmp, std::move(bmp)});
    return platform::clipboard_offer(std::move(items));
}

Bitmap picture_from_clipboard()
{
    try {
        const platform::ClipboardItem item = platform::clipboard_take(wanted_types, max_picture_file);
        if (item.type.empty()) return {};
        Bitmap picture = item.type == type_png ? decode_png(item.bytes) : decode_bmp(item.bytes);
        strip_top_bytes(picture);
        return picture;
    } catch (const std::bad_alloc&) {
        return {};
    }
}

} // namespace kelu
