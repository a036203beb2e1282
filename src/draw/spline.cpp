// SPDX-License-Identifier: MIT
// From nodes to the points of a curve.
#include "draw/spline.h"

#include "base/maths.h"
#include "draw/tool_options.h"

namespace kelu {
namespace {

/// A virtual neighbour just beyond a, on the line from b through a.
SplineNode dummy_node(const SplineNode& a, const SplineNode& b)
{
    return {a.x - (b.x - a.x) / 8, a.y - (b.y - a.y) / 8, 0};
}

/// Distance of two nodes, 16.16; scaled down by 64 while it is squared.
fixed node_dist(const SplineNode& a, const SplineNode& b)
{
    const auto scaled = [](int difference) { return itofix(difference) / 64; };
    const fixed dx = scaled(b.x - a.x);
    const fixed dy = scaled(b.y - a.y);
    return fixsqrt(fixadd(fixmul(dx, dx), fixmul(dy, dy))) * 64;
}

void set_tangents(SplineNodes& nodes, int count)
{
    for (int i = 1; i <= count + 1; ++i) {
        const SplineNode& before = nodes[i - 1];
        const SplineNode& after = nodes[i + 1];
        nodes[i].tangent = fixatan2(itofix(after.y - before.y), itofix(after.x - before.x));
    }
}

} // namespace

bool closed_curve() { return tool_option(TOOL_SPLINE, options::closed) != 0; }

void prepare_spline_nodes(const NodeTable& table, int n, bool closed, SplineNodes& nodes)
{
    const auto at = [&](int i) -> SplineNode& { return nodes[i]; };
    const auto copy = [&](int to, int from) {
        at(to).x = at(from).x;
        at(to).y = at(from).y;
    };
    for (int i = 1; i < n; ++i) {
        const Point node = table[i];
        if (node.x == unset_node) continue;
        at(i).x = node.x;
        at(i).y = node.y;
    }
    if (closed) {
        copy(n, 1);
        copy(n + 1, 2);
        copy(0, n - 1);
    } else {
        copy(n, n - 1);
    }
}

std::array<int, 8> spline_control_points(const SplineNode& a, const SplineNode& b, fixed curviness)
{
    const fixed d = fixmul(node_dist(a, b), curviness);
    const auto across = [d](fixed tangent) { return fixtoi(fixmul(fixcos(tangent), d)); };
    const auto down = [d](fixed tangent) { return fixtoi(fixmul(fixsin(tangent), d)); };
    return {a.x, a.y, a.x + across(a.tangent), a.y + down(a.tangent), b.x - across(b.tangent), b.y - down(b.tangent),
            b.x, b.y};
}

Points build_spline(SplineNodes& nodes, int count, bool closed, int curve)
{
    const auto at = [&](int i) -> SplineNode& { return nodes[i]; };
    if (!closed) {
        at(0) = dummy_node(at(1), at(2));
        at(count + 3) = dummy_node(at(count + 2), at(count + 1));
    }
    set_tangents(nodes, count);
    const int segments = closed ? count : count - 1;
    const fixed curviness = ftofix(curve / 100.0);
    Points points;
    for (int i = 1; i <= segments; ++i) {
        const std::array<int, 8> control = spline_control_points(at(i), at(i + 1), curviness);
        std::array<int, spline_steps> xs{};
        std::array<int, spline_steps> ys{};
        calc_spline(control.data(), spline_steps, xs.data(), ys.data());
        for (std::size_t k = 0; k < xs.size(); ++k)
            points.push_back({xs[k], ys[k]});
    }
    return points;
}

void rebuild_spline()
{
    const bool closed = closed_curve();
    prepare_spline_nodes(tool_input.tool_nodes, spline.count + 1, closed, spline.spline_nodes);
    tool_input.point_list =
        build_spline(spline.spline_nodes, spline.count, closed, tool_option(TOOL_SPLINE, options::curve));
}

} // namespace kelu
