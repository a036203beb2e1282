// The frame as the user sees it: background, pixels at the zoom, onion skin, grid and tool overlay.
#pragma once

#include "runtime/bitmap.h"

namespace kelu {

/// Fills the target with the checker pattern when the view reaches beyond the frame.
void paint_background(BITMAP* target);
/// Paints the frame at the snapshot's zoom and pan. With `overlay`, what tools have drawn on the overlay lies on top.
void paint_frame(BITMAP* target, bool overlay);

} // namespace kelu
