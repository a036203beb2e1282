// SPDX-License-Identifier: MIT
// "FSHAPE": an outline drawn by hand, closed when the button is released.
#pragma once

namespace kelu {

/// Follows the mouse from the press on. Returns 1; 0 when the program is asked to end meanwhile.
int freehand_shape_tool();

} // namespace kelu
