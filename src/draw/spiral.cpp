// SPDX-License-Identifier: MIT
// The spiral's points.
#include "draw/spiral.h"

#include <cmath>

namespace kelu {
namespace {

constexpr double half_turn = 3.14159;
constexpr double turn_length = 6.28; ///< radians that count as a wrap
constexpr double radians_a_step = 0.01;
constexpr double spread_unit = 30000; ///< spread that doubles the radius in one step

} // namespace

void plot_spiral(int cx, int cy, double degrees, double scale, double wraps, double spread, bool flip, Points& points,
                 Bounds& bounds)
{
    bounds = {};
    points.clear();
    const double turn = degrees * half_turn / 180;
    const double s = std::sin(turn);
    const double c = std::cos(turn);
    const double end = std::trunc(wraps) * turn_length;
    double k = 1;
    double t = 0;
    while (t < end) {
        const double a = t * k * std::cos(t) * (scale / 100);
        const double b = t * k * std::sin(t) * (scale / 100);
        const double x = c * a - b * s;
        const double y = a * s + b * c;
        const Point p{to_coordinate(flip ? -x : x) + cx, to_coordinate(y) + cy};
        points.push_back(p);
        bounds.widen(p);
        t += radians_a_step;
        k += spread / spread_unit;
    }
}

} // namespace kelu
