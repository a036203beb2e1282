// SPDX-License-Identifier: MIT
// Pictures of the program's own: what resource/ holds, and the tiles and pictures made from it at start.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Size of a brush tip's cell in the tip sheet, in pixels; the tip's centre is its pixel (8, 7).
constexpr int tip_cell_w = 17;
constexpr int tip_cell_h = 15;
/// Tip cells in a row of the tip sheet: tip t lies at (t % 12 x 17, t / 12 x 15).
constexpr int tips_per_row = 12;
/// Side of a pattern tile in pixels: a power of two, as Allegro's pattern modes ask for.
constexpr int tile_side = 64;

/// Owner: workspace/resources. Also written by the screen of colour schemes (`recolor_gui_sheet`). The sheet of all
/// tips travels with the workspace and is in `store.tip_sheet`.
/// Writers: workspace.
struct Sheets {
    Bitmap gui_sheet;        ///< arrows, knobs and caps, recoloured to the scheme; magenta shows what lies below
    Bitmap app_sheet;        ///< the logo, 173 x 33, whose square at (70, 0) is the emblem
    Bitmap enlarged_picture; ///< 198 x 198: the emblem six times enlarged, behind the help pages
    Bitmap hatch_tile;       ///< 64 x 64: black with white diagonal bands, the pattern of all dashed lines
    Bitmap backdrop_tiles;   ///< 192 x 64: three checker tiles for what lies beyond a frame, dark to light frames
};
inline Sheets sheets;

/// The palette of the resources, 6 bits a channel: what the numbers in font pictures, stripes and outlines mean. It
/// is Allegro's palette from start to end, so `palette_color[i]` is its entry i as a pixel. Owner: workspace/resources.
inline RGB framework_palette[PAL_SIZE];

} // namespace kelu
