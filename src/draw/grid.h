// SPDX-License-Identifier: MIT
// Grid snap and the repair of the grid's settings.
#pragma once

#include "runtime/grid.h"

namespace kelu {

/// The grid line nearest to a frame coordinate, a tie going to the higher; the coordinate itself while the grid is
/// off. Axis 0 is x, 1 is y. The grid's pitch must be valid (see `repair_grid`).
int snap_to_grid(int x, int y, int axis);

/// Puts pitch and offset back into their ranges: a pitch outside 2 to 999 becomes 2, an offset outside the pitch 0.
/// Logs one line when anything had to change.
void repair_grid();

} // namespace kelu
