// SPDX-License-Identifier: MIT
// Dashed lines that crawl: what every preview is drawn with.
#pragma once

#include "base/bitmap.h"
#include "draw/point_list.h"
#include <span>

namespace kelu {

/// Draws with the hatch tile, anchored at the frame's dash phase, as long as it lives; then solid again. Coordinates
/// are those of the target and may lie far outside.
class DashPen {
public:
    explicit DashPen(BITMAP* target);
    ~DashPen();
    DashPen(const DashPen&) = delete;
    DashPen& operator=(const DashPen&) = delete;

    void line(Point from, Point to) const;
    void rectangle(Point corner, Point opposite) const;
    void rectangle(const Bounds& bounds) const;
    void circle(Point center, int radius) const;
    /// The open line through the points, each moved by -`origin`; the pixels that `walk_outline` meets, whose stretches
    /// run from the later point to the earlier one.
    void polyline(std::span<const Point> points, Point origin) const;

private:
    BITMAP* target_;
};

} // namespace kelu
