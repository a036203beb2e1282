// SPDX-License-Identifier: MIT
// From colours to the indices of a 256-colour palette, as the palette formats need them.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"
#include <array>

namespace kelu {

/// The index of each pixel, row by row without gaps. Pixels of 32 bits go through Allegro's colour table, which knows
/// five bits a channel; an 8-bit bitmap gives its own bytes.
/// `palette`: 256 entries of 6 bits a channel; null means Allegro's default palette.
Bytes index_pixels(BITMAP* bitmap, const RGB* palette);

/// Writes the palette as 256 x R, G, B of 8 bits, each 6-bit component shifted left by 2. Null: the default palette.
void put_palette(ByteWriter& out, const RGB* palette);

/// The colours that the program shows for a palette of 6-bit components.
std::array<int, PAL_SIZE> palette_colors(const RGB* palette);

} // namespace kelu
