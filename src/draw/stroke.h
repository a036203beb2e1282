// SPDX-License-Identifier: MIT
// Samples of the pointer: what lies between two of them, and the marks of "DRIZ." and "SPRAY".
#pragma once

#include "draw/point_list.h"

namespace kelu {

constexpr int no_position = -1; ///< coordinate of a stroke's last position before its first sample

/// True when a stroke has not begun on this axis, or has moved by at most one pixel.
bool is_step(int last, int now);

/// Adds a sample of the pointer to the outline: one that equals `last` is left out, one further than a pixel away from
/// it follows `last` itself.
void append_sample(Points& points, Point last, Point sample);

constexpr int no_dab = -1;

/// Radius of the next dab of "DRIZ.", in pixels: `radius` at rest, less in a straight line down to 0 at a speed of
/// `taper` pixels a sample, `no_dab` beyond it. `last` is the sample before, -1 in a coordinate that is unset.
int driz_radius(Point last, Point now, int radius, int taper);

/// Reports `density` random pixels of the square of side 2 x `radius` about (cx, cy), less those outside the disc.
void spray_points(int cx, int cy, int density, int radius, PointVisit visit);

} // namespace kelu
