// Placing the nodes of a gradient ink on the frame.
#pragma once

#include "draw/point_list.h"

namespace kelu {

/// Lets the user move the nodes of a gradient ink, until its hotkey or a right click on the canvas ends it. The menu is
/// away meanwhile. Any other ink is refused with a line in the log.
void reposition_gradient(int ink);

/// Draws the nodes of a gradient ink, and notes whether one of them is in view. Positions on the overlay are frame
/// pixels less `origin`.
void draw_gradient_nodes(BITMAP* overlay, Point origin, int ink);

} // namespace kelu
