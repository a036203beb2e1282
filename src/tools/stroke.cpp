// Dabs and drops.
#include "tools/stroke.h"

#include "base/maths.h"
#include "draw/span_fill.h"
#include "draw/tool_input.h"
#include "loop/frame.h"
#include "loop/tool_loop.h"
#include "runtime/clock.h"
#include "runtime/random.h"
#include "runtime/store.h"
#include "tools/tools.h"
#include <cstdlib>

namespace kelu {
namespace {

bool is_step(int last, int now) { return last == -1 || std::abs(now - last) <= 1; }

} // namespace

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

void render_driz(const Stroke& stroke)
{
    const int radius = tool_option(TOOL_DRIZ, 0, 32);
    const int taper = tool_option(TOOL_DRIZ, 1, 32);
    do {
        const Point now = snapped_mouse();
        const Point last{stroke_position.stroke_last_x, stroke_position.stroke_last_y};
        if (now != last) {
            const int dab = driz_radius(last, now, radius, taper);
            tool_input.tool_nodes[0] = now;
            walk_disc(now, dab, store.frame_bitmap.height(),
                      [&](int left, int right, int y) { fill_span(left, right, y, stroke.ink); });
            stroke_position = {now.x, now.y};
        }
        run_frame(0);
    } while (left_down() && !leaving());
}

void render_spray(const Stroke& stroke)
{
    const int density = tool_option(TOOL_SPRAY, 0, 255);
    const int radius = tool_option(TOOL_SPRAY, 1, 31);
    do {
        if (clock_state.tool_tick_flag.take() != 0) {
            const Point center = snapped_mouse();
            spray_points(center.x, center.y, density, radius,
                         [&](int x, int y) { stamp_tip(x, y, TOOL_SPRAY, stroke.ink, no_tip); });
        }
        run_frame(0);
    } while (left_down() && !leaving());
}

} // namespace kelu
