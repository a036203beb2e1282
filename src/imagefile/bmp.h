// SPDX-License-Identifier: MIT
// Windows bitmaps: the containers of a workspace (cel, custom tip, thumbnails), and pictures of other programs.
#pragma once

#include "base/bitmap.h"
#include "imagefile/row_source.h"
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kelu {

/// Decodes a BMP of 1 to 32 bits, plain, run-length coded or with channels by masks, either way up. The top byte of
/// every pixel is 0. Empty when the bytes are of another kind, cut short or too large.
Bitmap decode_bmp(std::span<const uint8_t> bytes);

/// Reads a file by `decode_bmp`. Empty when the file is missing or not such a picture.
Bitmap read_bmp(const std::string& name);

/// Appends the bitmap as a BMP file to `out`, with 24 bits a pixel; top bytes are left out.
void encode_bmp(BITMAP* bitmap, std::vector<uint8_t>& out);

/// Writes the bitmap, or a sub-bitmap, with 24 bits a pixel; top bytes are left out. The file takes the place of an
/// old one only when it is whole; false when that failed, and the old one stays.
bool write_bmp(const std::string& name, BITMAP* bitmap);

} // namespace kelu
