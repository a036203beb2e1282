// SPDX-License-Identifier: MIT
// The calls through which tools, cels and text put ink on the frame. Each reports what it touches.
#pragma once

#include "draw/ink_rows.h"

namespace kelu {

/// The row of an ink, or null for a number that is no ink.
const InkRow* find_ink(int ink);

/// Changes one pixel of the frame. Arguments: frame pixels, ink id, colour of the ink, tip value 0 (full strength) to
/// 255. Nothing happens outside the frame.
void apply_ink(int x, int y, int ink, int color, int tip_value);

/// Stamps a tip with its centre on (x, y): all its cells that lie in the frame, row by row.
void stamp_ink(int x, int y, int ink, int color, const TipCell& tip);

/// Applies the ink at full strength from `left` to `right`, both included, in row y; clipped to the frame.
void span_ink(int left, int right, int y, int ink, int color);

/// Pastes the pixels of a picture that aren't magenta with the current ink; its top left corner at (x, y).
void ink_sprite(BITMAP* picture, int x, int y);

/// Pastes all pixels of a picture with the current ink where the frame's pixel is within 4 of the mask colour.
void ink_below(BITMAP* picture, int x, int y);

/// Puts the options of a fresh workspace into `toolbox.ink_table`.
void set_initial_ink_options();

} // namespace kelu
