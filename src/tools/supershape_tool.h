// SPDX-License-Identifier: MIT
// "SSHAPE": the superformula: the panel of sliders and its loop.
#pragma once

namespace kelu {

/// The tool: the panel over the canvas, the mouse the centre.
void supershape_tool();

} // namespace kelu
