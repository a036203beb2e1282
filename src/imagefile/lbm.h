// SPDX-License-Identifier: MIT
// IFF pictures (LBM): "FORM", size, "PBM " or "ILBM", then chunks of id, size and data, padded to an even length.
//
//   BMHD  width, height, x, y (2 each), planes, masking, compression (1 each) ...
//   CMAP  R, G, B of each colour
//   BODY  rows: PBM a byte a pixel, ILBM one run of bits a plane; plain, or ByteRun1 when compression is 1
//
// Numbers are big-endian.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"

namespace kelu {

/// Decodes a picture of up to 8 planes, or of 24 planes of colour. Rows are padded to an even length, except where a
/// plain PBM body has exactly width x height bytes, as `encode_lbm` writes it. Colours pass through 6 bits a channel.
/// `palette`: 256 entries, filled from the CMAP; may be null. Empty when the bytes are of another kind, or cut short.
Bitmap decode_lbm(std::span<const uint8_t> bytes, RGB* palette = nullptr);

/// Appends a bitmap as a PBM file with an uncompressed body to `out`, its pixels mapped to the palette by Allegro's
/// colour table. `palette`: 256 entries, null means Allegro's default palette. Returns 0, or -1 when there is no
/// bitmap.
int encode_lbm(BITMAP* bitmap, const RGB* palette, Bytes& out);

/// Writes an LBM file, which replaces an old one only when it is whole on disk. Returns 0 or -1.
int save_lbm(const char* file_name, BITMAP* bitmap, const RGB* palette);

} // namespace kelu
