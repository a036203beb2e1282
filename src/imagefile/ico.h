// Windows icons: a directory of images, each a headless BMP with a mask, or a whole PNG.
//
//   0, 1, count (2 each)
//   entries of 16: width, height, colours, 0 (1 each), planes, bits (2 each), size, offset (4 each)
//
// Numbers are little-endian. Written is one image, as PNG with 32 bits. Read is the first image of a file.
#pragma once

#include "imagefile/reader.h"
#include "runtime/bitmap.h"

namespace kelu {

/// Longest side of an icon, in pixels; the directory has a byte for it, where 0 means 256.
constexpr int max_icon_side = 256;

/// An icon as a colour picture, top byte 0, and its alpha as a grey picture of the same size. Both empty: no icon.
struct Icon {
    Bitmap picture, alpha;
};

/// Decodes the first image of an ICO file in memory, of 1, 4, 8, 24 or 32 bits or a PNG. The alpha comes from the
/// image's own alpha bytes, else from its mask. What is wrong goes to the log.
Icon decode_ico(std::span<const uint8_t> bytes);

/// Appends a bitmap in merged form as an ICO file with one PNG to `out`. Returns 1, or -1 when there is no bitmap or
/// a side is above `max_icon_side`.
int encode_ico(BITMAP* bitmap, Bytes& out);

/// Reads an ICO file; empty when it can't be read. Without `preview` the store's `alpha_bitmap` is replaced by the
/// icon's alpha, if the icon is good.
Bitmap load_ico(const char* file_name, bool preview);
/// Writes an ICO file, which replaces an old one only when it is whole on disk. Returns 1, or -1 with a line in the
/// log.
int save_ico(const char* file_name, BITMAP* bitmap);

} // namespace kelu
