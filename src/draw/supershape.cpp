// SPDX-License-Identifier: MIT
// The superformula's outline.
#include "draw/supershape.h"

#include "draw/tool_input.h"
#include <algorithm>
#include <cmath>

namespace kelu {
namespace {

constexpr double half_turn = 3.14159;
constexpr double whole_turn = 6.28318;

struct Position {
    double x = 0, y = 0;
};

} // namespace

void supershape_point(double m, double n1, double n2, double n3, double phi, double* x, double* y)
{
    const double t = m * phi * 0.25;
    const double r = std::pow(std::pow(std::abs(std::cos(t)), n2) + std::pow(std::abs(std::sin(t)), n3), 1 / n1);
    *x = r != 0 ? std::cos(phi) / r : 0;
    *y = r != 0 ? std::sin(phi) / r : 0;
}

void plot_supershape(int cx, int cy, const SupershapeSettings& settings, Points& points, Bounds& bounds)
{
    bounds = {};
    points.clear();
    const double turn = settings.degrees * half_turn / 180;
    const double s = std::sin(turn);
    const double c = std::cos(turn);
    const auto hundredths = [](int n) { return static_cast<float>(n) / 100.0F; };
    const double n1 = hundredths(settings.n1);
    const double n2 = hundredths(settings.n2);
    const double n3 = hundredths(settings.n3);
    const double arms = std::max(settings.arms, 1);
    for (int i = 0; i < supershape_points; ++i) {
        double x = 0;
        double y = 0;
        supershape_point(arms, n1, n2, n3, i * whole_turn / supershape_points, &x, &y);
        const Position now{x * c - y * s, x * s + y * c};
        const Point p{to_coordinate(now.x * settings.magnitude + cx), to_coordinate(now.y * settings.magnitude + cy)};
        points.push_back(p);
        bounds.widen(p);
    }
    points.push_back(points.front());
}

void plot_shown_supershape(Point origin)
{
    const Point center = tool_input.tool_nodes[0];
    plot_supershape(center.x - origin.x, center.y - origin.y, shown_supershape, tool_input.point_list,
                    tool_input.bounds);
}

} // namespace kelu
