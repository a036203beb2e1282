// SPDX-License-Identifier: MIT
// Pasting the cel turned by an angle that a slider sets, about a centre that the user clicks.
#pragma once

namespace kelu {

/// Runs the whole of it: the centre, the panel, and the paste through the current ink. A right click on the canvas or
/// OKAY anchors, CANCEL leaves the frame as it is.
void cel_turn();

} // namespace kelu
