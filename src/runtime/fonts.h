// SPDX-License-Identifier: MIT
// The bitmap fonts of the screens, as tables in memory. The vector fonts of the text tool are another matter.
#pragma once

#include "base/bitmap.h"
#include "base/table.h"

namespace kelu {

/// Slots of the font table that are loaded: numbers, notes and measures; labels, fields and help pages.
enum FontSlot { FONT_NARROW = 4, FONT_WIDE = 5, FONT_SLOT_COUNT = 16 };

/// One bitmap font. Owner: gui/text, which loads it; everyone may read its measures.
struct Font {
    Bitmap glyph_sheet;               ///< a strip of 255 cells; glyphs are in the marker colours of the palette
    int cell_w = 0, cell_h = 0;       ///< size of a glyph's cell in pixels
    std::array<int, 256> glyph_x{};   ///< by character code: x of the glyph in the strip; 0 is the empty cell
    std::array<int, 256> glyph_y{};   ///< by character code: added to the pen's y, for what hangs below the line
    std::array<int, 256> advance{};   ///< by character code: how far the pen moves on
    int shadow_dx = 0, shadow_dy = 0; ///< offset of the shadow
    std::array<int, 8> ramp{};        ///< palette indices of the bottom row of the font's picture
};
inline Table<Font, FONT_SLOT_COUNT> font_table;

} // namespace kelu
