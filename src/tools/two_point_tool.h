// SPDX-License-Identifier: MIT
// "LINE", "BOX" and "CIRCLE": a click, a dashed shape that follows the mouse, and a second click.
#pragma once

namespace kelu {

/// Waits for the second point and leaves it in `pointer.press_x`, `press_y` and in node `node`. `message` is shown in
/// the status bar meanwhile, -1 none. True when it was given, false when the right button cancelled; no hotkeys.
bool rubber_band(int node, int message);

/// The flow of the two-point tools: nodes 0 and 1, then the operation. 0 when cancelled: nothing has been touched.
int gather_two_points();

} // namespace kelu
