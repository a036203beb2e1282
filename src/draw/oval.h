// SPDX-License-Identifier: MIT
// The ellipse of "OVAL", as a chain of pixels.
#pragma once

#include "draw/point_list.h"

namespace kelu {

/// The ellipse about (cx, cy) with radii ra and rb, its first axis turned by -`degrees`, sampled `steps` times (1 to
/// 360) and joined by lines, so that each point is adjacent to the one before and the last to the first.
Points interpolate_ellipse(int cx, int cy, int ra, int rb, int degrees, int steps);

} // namespace kelu
