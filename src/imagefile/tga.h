// SPDX-License-Identifier: MIT
// Truevision TGA 2.0, the form in which frames lie on disk: 32 bits a pixel, the alpha bytes kept bit for bit.
#pragma once

#include "base/bitmap.h"
#include "imagefile/row_source.h"
#include "platform/files.h"
#include <cstdint>
#include <span>
#include <string>

namespace kelu {

/// Decodes a true-colour TGA of 24 or 32 bits, plain or run-length coded, with its origin in any corner. Pixels come
/// out in merged form; 24-bit pixels get alpha 255. Empty when the bytes are of another kind, cut short or too large.
Bitmap decode_tga(std::span<const uint8_t> bytes);

/// The same for the form in which frames are written, read piece by piece into place; empty for all others.
Bitmap read_plain_tga(platform::ByteSource& file);

/// Reads a file by either. Empty when the file is missing or not such a picture.
Bitmap read_tga(const std::string& name);

/// True when `read_tga` would give a picture whose sides have `least_side` pixels or more. A file of the form in which
/// frames are written needn't be read for that.
bool tga_readable(const std::string& name, int least_side);

/// Writes a picture of w x h merged pixels: uncompressed, 32 bits, bottom row first, blue green red alpha. The file
/// takes the place of an old one only when it is whole; false when that failed, and the old one stays.
bool write_tga(const std::string& name, int w, int h, const RowSource& rows);

/// Writes a bitmap in merged form.
bool write_tga(const std::string& name, BITMAP* bitmap);

} // namespace kelu
