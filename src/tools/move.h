// SPDX-License-Identifier: MIT
// "MOVE": lifts a rectangle off the frame and puts it down elsewhere, through the machinery of the cels.
#pragma once

namespace kelu {

/// Runs the tool from its first corner, node 0, to the anchoring. The user's own cel comes back in the end.
void move_tool();

} // namespace kelu
