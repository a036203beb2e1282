// SPDX-License-Identifier: MIT
// PCX pictures: a head of 128 bytes, run-length coded rows of one or more planes, and for 256 colours a palette of
// 768 bytes behind a byte 12 at the end of the file. Numbers are little-endian.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"

namespace kelu {

/// Decodes a picture of 1, 2, 4 or 8 bits in one to four planes: palettes of up to 256 colours, or three planes of 8
/// bits. Palette colours pass through 6 bits a channel.
/// `palette`: 256 entries, filled when the picture has one; may be null. Empty when the bytes are of another kind, or
/// cut short.
Bitmap decode_pcx(std::span<const uint8_t> bytes, RGB* palette = nullptr);

/// Appends a bitmap as three planes of 8 bits to `out`; top bytes are left out. Returns 0, or -1 when there is no
/// bitmap.
int encode_pcx(BITMAP* bitmap, Bytes& out);

/// Writes a PCX file, which replaces an old one only when it is whole on disk. Returns 0 or -1.
int save_pcx_picture(const char* file_name, BITMAP* bitmap);

} // namespace kelu
