// SPDX-License-Identifier: MIT
// "SPLINE": the loops in which the nodes of the curve are set and moved.
#pragma once

namespace kelu {

/// The tool, from the press on: a click sets a node or picks one up within 8 pixels, a right click draws the curve.
/// Returns 1, or 0 when the program is asked to exit meanwhile.
int gather_spline();
/// Lets node `slot` (0 to 255) follow the pointer until the next click on the canvas.
void reposition_spline_node(int slot);

} // namespace kelu
