// SPDX-License-Identifier: MIT
// Steps, dabs and drops.
#include "draw/stroke.h"

#include "base/maths.h"
#include "runtime/random.h"
#include <cstdlib>

namespace kelu {

bool is_step(int last, int now) { return last == no_position || std::abs(now - last) <= 1; }

void append_sample(Points& points, Point last, Point sample)
{
    if (sample == last) return;
    if (!is_step(last.x, sample.x) || !is_step(last.y, sample.y)) points.push_back(last);
    points.push_back(sample);
}

int driz_radius(Point last, Point now, int radius, int taper)
{
    if (is_step(last.x, now.x) && is_step(last.y, now.y)) return radius;
    const int distance = dist2(last.x, last.y, now.x, now.y);
    if (distance > taper) return no_dab;
    return radius - static_cast<int>(static_cast<double>(distance) / taper * radius);
}

void spray_points(int cx, int cy, int density, int radius, PointVisit visit)
{
    for (int i = 0; i < density; ++i) {
        const int x = cx - radius + rnd(2 * radius);
        const int y = cy - radius + rnd(2 * radius);
        if (dist2(cx, cy, x, y) < radius) visit(x, y);
    }
}

} // namespace kelu
