// SPDX-License-Identifier: MIT
// The corners of a regular polygon.
#include "draw/polygon.h"

#include "base/log.h"
#include "draw/tool_input.h"
#include <algorithm>
#include <cmath>

namespace kelu {
namespace {

constexpr double radians_per_degree = 0.017453292522222223;
constexpr double whole_turn = 6.283185308;
constexpr double half_turn = 3.141592654;

} // namespace

int plot_polygon(int cx, int cy, int degrees, int radius, int sides, Points& points, Bounds& bounds)
{
    bounds = {};
    points.clear();
    if (sides < fewest_sides || sides > most_sides) {
        log_line("[ ERROR ] : Number of sides OOB in call to plot_polygon. Sides = %d", sides);
        return -1;
    }
    if (radius < smallest_radius || radius > largest_radius) {
        log_line("[ ERROR ] : Radius OOB in call to plot_polygon. Radius = %d", radius);
        return -1;
    }
    const double turn = degrees * radians_per_degree;
    for (int i = 0; i < sides; ++i) {
        // Half a step on, so that an edge and not a corner lies at the bottom.
        const double t = i * whole_turn / sides + half_turn / sides;
        const double u = radius * std::sin(t);
        const double v = radius * std::cos(t);
        const Point corner{to_coordinate(std::round(std::cos(turn) * u - std::sin(turn) * v) + cx),
                           to_coordinate(std::round(v * std::cos(turn) + u * std::sin(turn)) + cy)};
        points.push_back(corner);
        bounds.widen(corner);
    }
    points.push_back(points.front());
    return static_cast<int>(points.size());
}

void plot_shown_polygon()
{
    // A radius of 0 is on the slider's first place and is the smallest polygon.
    plot_polygon(tool_input.tool_nodes[0].x, tool_input.tool_nodes[0].y, shown_polygon.angle,
                 std::max(shown_polygon.radius, smallest_radius), shown_polygon.sides, tool_input.point_list,
                 tool_input.bounds);
}

} // namespace kelu
