// SPDX-License-Identifier: MIT
// What the writers of PNG pictures and PNG animations share.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"

namespace kelu {

/// Appends a chunk: length, type, data and CRC.
void put_png_chunk(ByteWriter& out, std::string_view type, std::span<const uint8_t> data);
/// The data of a head with 8 bits a sample; `color_type` is a PngColorType.
Bytes png_header_data(int width, int height, int color_type);
/// The filtered rows of a 32-bit bitmap as RGBA in one zlib stream: unfiltered or by the Paeth predictor, whichever is
/// shorter. Empty, with `png_error` set, when memory is short.
Bytes packed_rgba(BITMAP* bitmap);

} // namespace kelu
