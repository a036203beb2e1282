// SPDX-License-Identifier: MIT
// The line of text at the edge of the screen: a message, a tooltip, or where the pointer is.
#pragma once

namespace kelu {

/// Height of the bar in logical pixels.
constexpr int status_bar_h = 7;

/// Draws the bar into the back buffer, over everything, as the frame's snapshot says. Main thread.
void draw_status_bar();

} // namespace kelu
