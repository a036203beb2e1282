// "R.POLY": a regular polygon, set by a panel of sliders.
#pragma once

#include "draw/point_list.h"

namespace kelu {

/// The panel's values. Stored with the workspace; written when a shape is accepted.
struct RegularPolygonSettings {
    int angle = 0;   ///< degrees, 0 to 359
    int radius = 50; ///< frame pixels, 0 to 500
    int sides = 3;   ///< 3 to 32
};
inline RegularPolygonSettings rpoly_settings;

/// Puts the polygon about (cx, cy) into `points`, closed by its first corner, and its box into `bounds`. At angle 0 an
/// edge lies at the bottom. Returns the number of points, sides + 1. Sides outside 3 to 32 or a radius outside 1 to
/// 512 log a line, empty the list and return -1.
int plot_polygon(int cx, int cy, int degrees, int radius, int sides, Points& points, Bounds& bounds);

/// The tool: the panel over the canvas, node 0 the centre.
void regular_polygon_tool();

} // namespace kelu
