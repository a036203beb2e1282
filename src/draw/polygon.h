// SPDX-License-Identifier: MIT
// "R.POLY": a regular polygon.
#pragma once

#include "draw/point_list.h"
#include "runtime/shape_settings.h"

namespace kelu {

constexpr int fewest_sides = 3, most_sides = 32;
constexpr int smallest_radius = 1, largest_radius = 512; ///< frame pixels

/// Puts the polygon about (cx, cy) into `points`, closed by its first corner, and its box into `bounds`. At angle 0 an
/// edge lies at the bottom. Returns the number of points, sides + 1. Sides outside 3 to 32 or a radius outside 1 to
/// 512 log a line, empty the list and return -1.
int plot_polygon(int cx, int cy, int degrees, int radius, int sides, Points& points, Bounds& bounds);

/// What the open panel says. Owner: the tool; its preview plots it.
/// Writers: tools.
inline RpolySettings shown_polygon;
/// Plots the panel's polygon about node 0 into the point list.
void plot_shown_polygon();

} // namespace kelu
