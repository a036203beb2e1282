// SPDX-License-Identifier: MIT
// "SPIRAL": the panel of sliders and its loop.
#pragma once

namespace kelu {

/// The tool: the panel over the canvas, node 0 the centre.
void spiral_tool();

} // namespace kelu
