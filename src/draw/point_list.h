// SPDX-License-Identifier: MIT
// Points, and the walks that turn pairs of them into pixels: lines, circles, outlines and filled outlines.
//
// The walkers know no frame, ink or screen. They report every pixel to a visitor, in the order in which it is drawn.
#pragma once

#include "base/bitmap.h"
#include "base/function_ref.h"
#include <algorithm>
#include <limits>
#include <span>
#include <vector>

namespace kelu {

/// A position in frame pixels; may lie outside the frame.
struct Point {
    int x = 0, y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};
using Points = std::vector<Point>;

/// Furthest coordinate of a generated point: a frame's longest side.
constexpr int farthest = max_bitmap_side;

/// Truncates a coordinate toward zero and holds it within ±`farthest`; what is not a number becomes 0.
constexpr int to_coordinate(double value)
{
    if (value != value) return 0;
    return static_cast<int>(std::clamp(value, double{-farthest}, double{farthest}));
}

/// True when the points are at most one pixel apart in each axis.
constexpr bool adjacent(Point a, Point b)
{
    return a.x - b.x <= 1 && b.x - a.x <= 1 && a.y - b.y <= 1 && b.y - a.y <= 1;
}

/// The rectangle round a list of points, all sides included.
struct Bounds {
    int left = 99999, top = 99999, right = 0, bottom = 0; ///< as they are before the first point
    void widen(Point p)
    {
        left = std::min(left, p.x);
        top = std::min(top, p.y);
        right = std::max(right, p.x);
        bottom = std::max(bottom, p.y);
    }
    /// True strictly inside, not on a side.
    bool holds(int x, int y) const { return x > left && x < right && y > top && y < bottom; }
};

/// Allegro's line from a to b: max(|dx|, |dy|) + 1 points, both ends included.
void walk_line(Point a, Point b, PointVisit visit);
/// Allegro's circle of radius 0 or more; a negative radius draws nothing.
void walk_circle(Point center, int radius, PointVisit visit);

/// A filled circle, row by row as `walk_circle` reports its left half: a row's first point gives the whole span, a
/// point further left just the two new ends. Rows outside 0 to `height` - 1 are left out. `span` may reach outside
/// the frame.
void walk_disc(Point center, int radius, int height, SpanVisit span);

/// The pixels of the open line through the points, each once however often the line meets itself, those inside a
/// frame of `width` x `height` only. `segment` is called after each stretch between two points. Fewer than 2 points
/// draw nothing.
void walk_outline(std::span<const Point> points, int width, int height, PointVisit visit, FunctionRef<void()> segment);

/// The inside of a polygon as Allegro fills it, by the even-odd rule, right and bottom edges included, as spans within
/// a frame of `width` x `height`, from top to bottom. Points may lie far outside; beyond Allegro's reach, some 8000
/// pixels, spans may overlap by their end pixels.
void walk_polygon(std::span<const Point> points, int width, int height, SpanVisit span);

/// The rows of a closed outline from its leftmost to its rightmost point, top to bottom; not clipped. An extent of -1
/// counts as not yet set.
void walk_row_extents(std::span<const Point> points, SpanVisit span);

} // namespace kelu
