// SPDX-License-Identifier: MIT
// "SPIRAL": an Archimedean spiral.
#pragma once

#include "draw/point_list.h"

namespace kelu {

/// Puts the spiral about (cx, cy) into `points` and its box into `bounds`: a point each 0.01 radians, from the centre
/// outward. Wraps below 1 give an empty list.
void plot_spiral(int cx, int cy, double degrees, double scale, double wraps, double spread, bool flip, Points& points,
                 Bounds& bounds);

} // namespace kelu
