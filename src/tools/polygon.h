// "R.POLY": a regular polygon, set by a panel of sliders.
#pragma once

#include "draw/point_list.h"
#include "runtime/shape_settings.h"

namespace kelu {

/// Puts the polygon about (cx, cy) into `points`, closed by its first corner, and its box into `bounds`. At angle 0 an
/// edge lies at the bottom. Returns the number of points, sides + 1. Sides outside 3 to 32 or a radius outside 1 to
/// 512 log a line, empty the list and return -1.
int plot_polygon(int cx, int cy, int degrees, int radius, int sides, Points& points, Bounds& bounds);

/// What the open panel says. Owner: the tool; its preview plots it.
inline RpolySettings shown_polygon;
/// Plots the panel's polygon about node 0 into the point list.
void plot_shown_polygon();

/// The tool: the panel over the canvas, node 0 the centre.
void regular_polygon_tool();

} // namespace kelu
