// SPDX-License-Identifier: MIT
// Placing the nodes of a gradient ink on the frame.
#pragma once

namespace kelu {

/// Lets the user move the nodes of a gradient ink, until its hotkey or a right click on the canvas ends it. The menu is
/// away meanwhile. Any other ink is refused with a line in the log.
void reposition_gradient(int ink);

} // namespace kelu
