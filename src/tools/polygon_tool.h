// SPDX-License-Identifier: MIT
// "R.POLY": a regular polygon: the panel of sliders and its loop.
#pragma once

namespace kelu {

/// The tool: the panel over the canvas, node 0 the centre.
void regular_polygon_tool();

} // namespace kelu
