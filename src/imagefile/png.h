// SPDX-License-Identifier: MIT
// PNG pictures: our own reader and writer over zlib.
//
//   signature 89 'P' 'N' 'G' 0D 0A 1A 0A
//   chunks    length (4, big-endian), type (4), data, CRC-32 of type and data (4)
//             IHDR first; PLTE before IDAT; the IDATs together are one zlib stream of filtered rows; IEND last
//
// The format is that of RFC 2083. All of it runs on the main thread, in memory.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"

namespace kelu {

/// The last failure of a read or a write as a sentence for people; "No error." before the first.
inline const char* png_error = "No error.";

/// Decodes a PNG file in memory: every colour type and depth, interlaced or not. Grey and palette pictures come out as
/// colours; types 4 and 6 carry their alpha in the top byte, all others have 0 there. 16-bit samples lose their low
/// byte, tRNS is passed over, CRCs are not compared.
/// `palette`: 256 entries of 6 bits a channel, filled when the file has a PLTE chunk; may be null.
/// Empty, with `png_error` set, when the bytes are no whole PNG.
Bitmap decode_png(std::span<const uint8_t> bytes, RGB* palette = nullptr);

/// Appends a bitmap as a PNG file to `out`. An 8-bit bitmap becomes type 3 with `palette` (null: Allegro's present
/// one). A 32-bit bitmap becomes RGBA when any top byte is not 0; everything else becomes RGB. Returns 0, or -1 with
/// `png_error` set.
int encode_png(BITMAP* bitmap, const RGB* palette, Bytes& out);

/// Reads a PNG file; see `decode_png`.
Bitmap load_png(const char* file_name, RGB* palette = nullptr);
/// Writes a PNG file, which replaces an old one only when it is whole on disk; see `encode_png`.
int save_png(const char* file_name, BITMAP* bitmap, const RGB* palette = nullptr);

} // namespace kelu
