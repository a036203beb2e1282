// SPDX-License-Identifier: MIT
// The ellipse chain.
#include "draw/oval.h"

#include "base/maths.h"
#include <algorithm>
#include <cmath>

namespace kelu {
namespace {

constexpr double radians_per_degree = 0.017453292522222223;

void append_line(Points& chain, Point from, Point to)
{
    walk_line(from, to, [&](int x, int y) { chain.push_back({x, y}); });
}

} // namespace

Points interpolate_ellipse(int cx, int cy, int ra, int rb, int degrees, int steps)
{
    Points chain;
    const double turn = -degrees * radians_per_degree;
    const double s = std::sin(turn);
    const double c = std::cos(turn);
    const int step = 360 / std::clamp(steps, 1, 360);
    for (int t = 0; t < 360; t += step) {
        const double angle = t * radians_per_degree;
        const Point p{to_coordinate(c * std::cos(angle) * ra - s * std::sin(angle) * rb + cx),
                      to_coordinate(std::sin(angle) * rb * c + std::cos(angle) * ra * s + cy)};
        if (chain.empty() || (p != chain.back() && adjacent(p, chain.back()))) {
            chain.push_back(p);
        } else if (p != chain.back()) {
            append_line(chain, chain.back(), p);
        }
    }
    if (!adjacent(chain.front(), chain.back())) append_line(chain, chain.front(), chain.back());
    return chain;
}

} // namespace kelu
