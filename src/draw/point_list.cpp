// SPDX-License-Identifier: MIT
// Allegro's walkers behind visitors, and the outlines built on them.
#include "draw/point_list.h"

#include <cmath>

namespace kelu {
namespace {

// Allegro hands the bitmap through to its callback and never looks into it: it carries the visitor.
BITMAP* as_passenger(PointVisit& visit) { return reinterpret_cast<BITMAP*>(&visit); }

void report(BITMAP* passenger, int x, int y, int) { (*reinterpret_cast<PointVisit*>(passenger))(x, y); }

/// True when the line from a to b lies beyond one side of the frame.
bool misses(Point a, Point b, int width, int height)
{
    return (a.x < 0 && b.x < 0) || (a.y < 0 && b.y < 0) || (a.x >= width && b.x >= width) ||
           (a.y >= height && b.y >= height);
}

/// True when Allegro's polygon can fill the points: its edges are fixed-point numbers with 13 bits and a sign.
bool polygon_in_reach(std::span<const Point> points)
{
    constexpr int reach = 8191;
    const auto [left, right] =
        std::minmax_element(points.begin(), points.end(), [](Point a, Point b) { return a.x < b.x; });
    return left->x >= -reach && right->x <= reach && right->x - left->x <= reach;
}

/// The same rule for points far away, by the crossings of each row with the edges.
void walk_far_polygon(std::span<const Point> points, int width, int height, SpanVisit span)
{
    std::vector<double> crossings;
    for (int y = 0; y < height; ++y) {
        crossings.clear();
        for (std::size_t i = 0; i < points.size(); ++i) {
            const Point a = points[i];
            const Point b = points[(i + 1) % points.size()];
            if ((a.y <= y) == (b.y <= y)) continue;
            crossings.push_back(a.x + (b.x - a.x) * (static_cast<double>(y - a.y) / (b.y - a.y)));
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 1; i < crossings.size(); i += 2) {
            const int left = std::max(static_cast<int>(std::lround(crossings[i - 1])), 0);
            const int right = std::min(static_cast<int>(std::lround(crossings[i])), width - 1);
            if (left <= right) span(left, right, y);
        }
    }
}

} // namespace

void walk_line(Point a, Point b, PointVisit visit) { do_line(as_passenger(visit), a.x, a.y, b.x, b.y, 0, report); }

void walk_circle(Point center, int radius, PointVisit visit)
{
    if (radius >= 0) do_circle(as_passenger(visit), center.x, center.y, radius, 0, report);
}

void walk_disc(Point center, int radius, int height, SpanVisit span)
{
    constexpr int no_span = -1;
    std::vector<int> leftmost(std::max(height, 0), no_span);
    walk_circle(center, radius, [&](int x, int y) {
        if (x > center.x || y < 0 || y >= height) return;
        int& left = leftmost[y];
        const int right = x + 2 * (center.x - x);
        if (left == no_span) {
            span(x, right, y);
            left = x;
        } else if (x < left) {
            // The rows of a circle grow outward, so that all between the ends is there already.
            span(x, x, y);
            span(right, right, y);
            left = x;
        }
    });
}

void walk_outline(std::span<const Point> points, int width, int height, PointVisit visit, FunctionRef<void()> segment)
{
    Bitmap seen(width, height);
    if (!seen) return;
    for (std::size_t i = 1; i < points.size(); ++i) {
        // From the new point back to the last one: the two directions don't always meet the same pixels.
        if (!misses(points[i], points[i - 1], width, height)) {
            walk_line(points[i], points[i - 1], [&](int x, int y) {
                if (!in_bitmap(seen, x, y) || row(seen, y)[x] != 0) return;
                visit(x, y);
                row(seen, y)[x] = 1;
            });
        }
        segment();
    }
}

void walk_polygon(std::span<const Point> points, int width, int height, SpanVisit span)
{
    if (points.empty()) return;
    if (!polygon_in_reach(points)) {
        walk_far_polygon(points, width, height, span);
        return;
    }
    Bitmap inside(width, height);
    if (!inside) return;
    std::vector<int> corners;
    corners.reserve(2 * points.size());
    for (const Point& p : points) {
        corners.push_back(p.x);
        corners.push_back(p.y);
    }
    polygon(inside, static_cast<int>(points.size()), corners.data(), 1);
    for (int y = 0; y < height; ++y) {
        const int* const line = row(inside, y);
        const int* const end = line + width;
        for (const int* left = std::find(line, end, 1); left != end;) {
            const int* const beyond = std::find(left, end, 0);
            span(static_cast<int>(left - line), static_cast<int>(beyond - line) - 1, y);
            left = std::find(beyond, end, 1);
        }
    }
}

void walk_row_extents(std::span<const Point> points, SpanVisit span)
{
    if (points.empty()) return;
    constexpr int unset = -1;
    struct Extent {
        int min = unset, max = unset;
    };
    const auto [top, bottom] =
        std::minmax_element(points.begin(), points.end(), [](Point a, Point b) { return a.y < b.y; });
    const int first = top->y;
    std::vector<Extent> extents(static_cast<std::size_t>(bottom->y - first) + 1);
    for (const Point& p : points) {
        Extent& extent = extents[p.y - first];
        extent.min = extent.min == unset ? p.x : std::min(extent.min, p.x);
        extent.max = extent.max == unset ? p.x : std::max(extent.max, p.x);
    }
    for (std::size_t i = 0; i < extents.size(); ++i)
        span(extents[i].min, extents[i].max, first + static_cast<int>(i));
}

} // namespace kelu
