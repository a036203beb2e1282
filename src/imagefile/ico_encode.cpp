// SPDX-License-Identifier: MIT
// The ICO writer.
#include "imagefile/ico.h"

#include "base/log.h"
#include "imagefile/png.h"
#include "platform/files.h"

namespace kelu {

int encode_ico(BITMAP* bitmap, Bytes& out)
{
    if (!bitmap || bitmap->w > max_icon_side || bitmap->h > max_icon_side) return -1;
    Bytes image;
    if (encode_png(bitmap, nullptr, image) != 0) return -1;
    ByteWriter file(out);
    file.little16(0);
    file.little16(1); // icon
    file.little16(1); // one image
    file.byte(bitmap->w);
    file.byte(bitmap->h);
    file.byte(0); // colours
    file.byte(0);
    file.little16(1);  // planes
    file.little16(32); // bits
    file.little32(static_cast<uint32_t>(image.size()));
    file.little32(22); // where the image begins
    file.append(image);
    return 1;
}

int save_ico(const char* file_name, BITMAP* bitmap)
{
    Bytes bytes;
    if (encode_ico(bitmap, bytes) == 1 && platform::replace_file(file_name, bytes)) return 1;
    log_line("[ ERROR ] : Couldn't open ICO file for saving. Aborting!");
    return -1;
}

} // namespace kelu
