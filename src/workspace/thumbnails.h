// SPDX-License-Identifier: MIT
// The sheet of thumbnails: one cell a frame.
#pragma once

#include <allegro.h>

namespace kelu {

constexpr int nail_side = 40;                              ///< pixels of a cell's side
constexpr int nails_per_row = 10;                          ///< cells in a row of the sheet, and rows
constexpr int nail_sheet_side = nail_side * nails_per_row; ///< pixels of the sheet's side
constexpr int nail_x(int frame) { return frame % nails_per_row * nail_side; }
constexpr int nail_y(int frame) { return frame / nails_per_row * nail_side; }

/// Redraws the cell of the current frame from its colours, in alpha editing as well. Not 0 in `save` writes the sheet
/// to the working directory, which must then be the store's.
void update_frame_nail(int save);
/// Draws the current frame's colours into the cell of another frame, 0 to 99.
void draw_nail(int frame);
/// Draws a picture into the cell of a frame.
void draw_nail(int frame, BITMAP* picture);
/// Fills a frame's cell with black.
void clear_nail(int frame);
/// Copies a cell within the sheet.
void move_nail(int from, int to);
/// Writes the sheet to the working directory. Tells of a failure and returns false.
bool save_nails();

} // namespace kelu
