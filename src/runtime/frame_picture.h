// SPDX-License-Identifier: MIT
// The frame as the user sees it: background, pixels at the zoom, onion skin, grid and tool overlay.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Fills the target with the checker pattern when the view reaches beyond the frame.
void paint_background(BITMAP* target);
/// Fills the rectangle of the target from (x0, y0) to just before (x1, y1), which must lie inside, with checker tile 0
/// to 2. The pattern counts from the target's corner.
void paint_backdrop(BITMAP* target, int tile, int x0, int y0, int x1, int y1);
/// Paints the frame at the snapshot's zoom and pan. With `overlay`, what tools have drawn on the overlay lies on top.
void paint_frame(BITMAP* target, bool overlay);

} // namespace kelu
