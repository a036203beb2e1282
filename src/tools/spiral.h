// "SPIRAL": an Archimedean spiral, set by a panel of sliders.
#pragma once

#include "draw/point_list.h"
#include "runtime/shape_settings.h"

namespace kelu {

/// Puts the spiral about (cx, cy) into `points` and its box into `bounds`: a point each 0.01 radians, from the centre
/// outward. Wraps below 1 give an empty list.
void plot_spiral(int cx, int cy, double degrees, double scale, double wraps, double spread, bool flip, Points& points,
                 Bounds& bounds);

/// The tool: the panel over the canvas, node 0 the centre.
void spiral_tool();

} // namespace kelu
