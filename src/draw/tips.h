// SPDX-License-Identifier: MIT
// Brush tips: reading a tip's cell from the sheet, choosing a tip, and what the pointer shows of it.
#pragma once

#include "base/bitmap.h"
#include "runtime/sheets.h"
#include <array>
#include <cstdint>

namespace kelu {

constexpr int tip_center_x = 8, tip_center_y = 7; ///< the cell's pixel that falls on the brush point
constexpr int tip_no_ink = 200;                   ///< tip values from here on leave a pixel alone

/// The tip values of one cell, row by row: 0 full strength, 1 to 199 partial from strong to weak, 200 and more none.
struct TipCell {
    std::array<uint8_t, tip_cell_w * tip_cell_h> values;

    /// The 17 values of row y, 0 to 14.
    const uint8_t* line(int y) const { return values.data() + y * tip_cell_w; }
    uint8_t* line(int y) { return values.data() + y * tip_cell_w; }
};

/// How far a tip reaches from its centre along the cell's middle row and column, in pixels, 0 to 8.
struct TipReach {
    int left = 0, right = 0, up = 0, down = 0;
};

/// What the pointer shows of the present tip. Owner: draw/tips, through `rebuild_tip_cursor`.
struct Tips {
    Bitmap tip_cursor; ///< a cell's size: white where the pointer shows the tip, black elsewhere
    TipReach reach;    ///< the gap of the crosshairs
};
inline Tips tips;

/// Reads the cell of a tip, 0 to 99. Pixels outside the sheet, and those of the custom tip's cell beyond its 16 x 14
/// pixels, read as no ink.
TipCell tip_cell(int tip);

/// The one setter of `toolbox.brush_tip`: refuses and logs what is not -1 to 99, and rebuilds what the pointer shows.
void set_brush_tip(int tip);

/// Recomputes `tips` for the present tip, the sheet's present pixels and the option `cursor_tip`. Also to be called
/// when the sheet or the option has changed.
void rebuild_tip_cursor();

} // namespace kelu
