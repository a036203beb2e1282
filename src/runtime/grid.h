// SPDX-License-Identifier: MIT
// The grid that tools snap to.
#pragma once

#include "base/words.h"

namespace kelu {

/// Owner: draw/grid. Also written by the grid screen, macros and the state file.
/// Writers: workspace, screens.
struct Grid {
    Shared<int> grid_w = 4, grid_h = 4;         ///< pitch in frame pixels, 2 to 999
    Shared<int> grid_off_x = 0, grid_off_y = 0; ///< offset, 0 to the pitch - 1
    Shared<int> grid_on = 0;                    ///< 1: tools snap and the grid shows
    Shared<int> grid_opacity = 32;              ///< of the grid points at zoom level 1, 0 to 255
};
inline Grid grid;

} // namespace kelu
