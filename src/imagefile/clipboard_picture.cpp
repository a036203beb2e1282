// SPDX-License-Identifier: MIT
// Between bitmaps and the clipboard's media types.
#include "imagefile/clipboard_picture.h"

#include "imagefile/bmp.h"
#include "imagefile/gif.h"
#include "imagefile/jpeg.h"
#include "imagefile/picture_files.h"
#include "imagefile/png.h"
#include "platform/host.h"
#include <algorithm>
#include <iterator>
#include <new>
#include <span>

namespace kelu {
namespace {

using Decoder = Bitmap (*)(std::span<const uint8_t> bytes);

/// Media types in the order in which they are wanted: those that lose nothing first. Programs have several names for a
/// Windows bitmap, of which the first is offered.
constexpr const char* wanted_types[] = {"image/png",      "image/bmp",  "image/x-bmp",
                                        "image/x-MS-bmp", "image/jpeg", "image/gif"};
constexpr Decoder take_png = [](std::span<const uint8_t> bytes) { return decode_png(bytes); };
constexpr Decoder take_gif = [](std::span<const uint8_t> bytes) { return decode_gif(bytes); };
constexpr Decoder decoders[] = {take_png, decode_bmp, decode_bmp, decode_bmp, decode_jpeg, take_gif};
static_assert(std::size(wanted_types) == std::size(decoders));
constexpr const char* type_png = wanted_types[0];
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
    return platform::host->offer_clipboard(std::move(items));
}

Bitmap picture_from_clipboard()
{
    try {
        const platform::ClipboardItem item = platform::host->take_clipboard(std::span(wanted_types), max_picture_file);
        if (item.type.empty()) return {};
        const auto* const type = std::ranges::find(wanted_types, item.type);
        Bitmap picture = decoders[type - wanted_types](item.bytes);
        strip_top_bytes(picture);
        return picture;
    } catch (const std::bad_alloc&) {
        return {};
    }
}

} // namespace kelu
