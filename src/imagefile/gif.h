// SPDX-License-Identifier: MIT
// GIF pictures: a writer of single images with a local table of 256 colours, a reader of a file's first image.
//
//   "GIF89a", logical screen (width, height, packed, background, aspect), global table if bit 7 of packed is set
//   blocks: 21 extension (label, sub-blocks) | 2C image (descriptor, local table, LZW data) | 3B end
//
// Numbers are little-endian. Colours pass through palettes of 6 bits a channel, so the low two bits of a file's
// colours are lost. All of it runs on the main thread, in memory.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"

namespace kelu {

/// Decodes the first image of a GIF file in memory, at the image's own size. Transparent pixels come out magenta.
/// `palette`: 256 entries of 6 bits a channel, filled from the file's tables; may be null. With a transparent index
/// other than 0 the entry there takes the value of entry 0, and index 0 is the transparent one.
/// An image whose data ends early keeps the pixels that there are, with a line in the log. Empty when the bytes are no
/// GIF or hold no image.
Bitmap decode_gif(std::span<const uint8_t> bytes, RGB* palette = nullptr);

/// Appends a bitmap as a GIF file to `out`, with its pixels mapped to the palette by Allegro's colour table.
/// `palette`: 256 entries, null means Allegro's default palette. Returns 0, or -1 when there is no bitmap or its sides
/// are beyond the format's.
int encode_gif(BITMAP* bitmap, const RGB* palette, Bytes& out);

/// Reads a GIF file; see `decode_gif`.
Bitmap load_gif(const char* file_name, RGB* palette = nullptr);
/// Writes a GIF file, which replaces an old one only when it is whole on disk; see `encode_gif`.
int save_gif(const char* file_name, BITMAP* bitmap, const RGB* palette = nullptr);

} // namespace kelu
