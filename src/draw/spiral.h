// "SPIRAL": an Archimedean spiral, set by a panel of sliders.
#pragma once

#include "draw/point_list.h"

namespace kelu {

/// The panel's values. Stored with the workspace; written when a shape is accepted.
struct SpiralSettings {
    int angle = 0;   ///< degrees, 0 to 359
    int scale = 100; ///< per cent, 1 to 500
    int wraps = 5;   ///< turns, 1 to 64
    int spread = 0;  ///< how much the gap grows outward, 0 to 255
    int flip = 0;    ///< 1: mirrored left to right
    friend bool operator==(const SpiralSettings&, const SpiralSettings&) = default;
};
inline SpiralSettings spiral_settings;

/// Puts the spiral about (cx, cy) into `points` and its box into `bounds`: a point each 0.01 radians, from the centre
/// outward. Wraps below 1 give an empty list.
void plot_spiral(int cx, int cy, double degrees, double scale, double wraps, double spread, bool flip, Points& points,
                 Bounds& bounds);

/// The tool: the panel over the canvas, node 0 the centre.
void spiral_tool();

} // namespace kelu
