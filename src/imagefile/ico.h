// SPDX-License-Identifier: MIT
// Windows icons: a directory of images, each a headless BMP with a mask, or a whole PNG.
//
//   0, 1, count (2 each)
//   entries of 16: width, height, colours, 0 (1 each), planes, bits (2 each), size, offset (4 each)
//
// Numbers are little-endian. Written is one image, as PNG with 32 bits. Read is the first image of a file.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"

namespace kelu {

/// Longest side of an icon, in pixels; the directory has a byte for it, where 0 means 256.
constexpr int max_icon_side = 256;

/// Decodes the first image of an ICO file in memory, of 1, 4, 8, 24 or 32 bits or a PNG, into merged form. The alpha
/// comes from the image's own alpha bytes, else from its mask, else it is opaque. Empty when there is no image; what
/// is wrong goes to the log.
Bitmap decode_ico(std::span<const uint8_t> bytes);

/// Appends a bitmap in merged form as an ICO file with one PNG to `out`. Returns 1, or -1 when there is no bitmap or
/// a side is above `max_icon_side`.
int encode_ico(BITMAP* bitmap, Bytes& out);

/// Writes an ICO file, which replaces an old one only when it is whole on disk. Returns 1, or -1 with a line in the
/// log.
int save_ico(const char* file_name, BITMAP* bitmap);

} // namespace kelu
