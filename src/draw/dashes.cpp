// SPDX-License-Identifier: MIT
// The pen of the previews.
#include "draw/dashes.h"

#include "runtime/frame_snapshot.h"
#include "runtime/sheets.h"
#include "runtime/shows.h"
#include <algorithm>
#include <cstdlib>

namespace kelu {
namespace {

constexpr int reach = 8000; ///< coordinates that Allegro clips without overflow

/// Cuts the part of a line off that lies beyond ±`reach`; false when nothing is left. Liang and Barsky's parameters.
bool cut_to_reach(Point& from, Point& to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    double first = 0;
    double last = 1;
    const auto cut = [&](double step, double room) { // the part with first <= t <= last has t x step <= room
        if (step == 0) return room >= 0;
        const double t = room / step;
        if (step < 0) {
            first = std::max(first, t);
        } else {
            last = std::min(last, t);
        }
        return first <= last;
    };
    if (!cut(dx, reach - from.x) || !cut(-dx, from.x + reach) || !cut(dy, reach - from.y) || !cut(-dy, from.y + reach))
        return false;
    const Point start = from;
    from = {start.x + static_cast<int>(first * dx), start.y + static_cast<int>(first * dy)};
    to = {start.x + static_cast<int>(last * dx), start.y + static_cast<int>(last * dy)};
    return true;
}

bool in_reach(Point p) { return std::abs(p.x) <= reach && std::abs(p.y) <= reach; }

} // namespace

DashPen::DashPen(BITMAP* target) : target_(target)
{
    shows.dashes = 1;
    if (sheets.hatch_tile) drawing_mode(DRAW_MODE_COPY_PATTERN, sheets.hatch_tile, frame_snapshot.dash_phase, 0);
}

DashPen::~DashPen() { solid_mode(); }

void DashPen::line(Point from, Point to) const
{
    if ((in_reach(from) && in_reach(to)) || cut_to_reach(from, to)) ::line(target_, from.x, from.y, to.x, to.y, 0);
}

void DashPen::rectangle(Point corner, Point opposite) const
{
    line(corner, {opposite.x, corner.y});
    line({corner.x, opposite.y}, opposite);
    line(corner, {corner.x, opposite.y});
    line({opposite.x, corner.y}, opposite);
}

void DashPen::rectangle(const Bounds& bounds) const
{
    if (bounds.left <= bounds.right) rectangle({bounds.left, bounds.top}, {bounds.right, bounds.bottom});
}

void DashPen::circle(Point center, int radius) const { ::circle(target_, center.x, center.y, radius, 0); }

void DashPen::polyline(std::span<const Point> points, Point origin) const
{
    const auto moved = [&](Point p) { return Point{p.x - origin.x, p.y - origin.y}; };
    for (std::size_t i = 1; i < points.size(); ++i)
        line(moved(points[i]), moved(points[i - 1]));
}

} // namespace kelu
