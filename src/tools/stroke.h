// "DRIZ." and "SPRAY": strokes that follow the mouse and know no brush tip.
#pragma once

#include "draw/operation.h"
#include "draw/point_list.h"

namespace kelu {

constexpr int no_dab = -1;

/// Radius of the next dab of "DRIZ.", in pixels: `radius` at rest, less in a straight line down to 0 at a speed of
/// `taper` pixels a sample, `no_dab` beyond it. `last` is the sample before, -1 in a coordinate that is unset.
int driz_radius(Point last, Point now, int radius, int taper);

/// Reports `density` random pixels of the square of side 2 x `radius` about (cx, cy), less those outside the disc.
void spray_points(int cx, int cy, int density, int radius, PointVisit visit);

/// The strokes, until the left button is up.
void render_driz(const Stroke& stroke);
void render_spray(const Stroke& stroke);

} // namespace kelu
