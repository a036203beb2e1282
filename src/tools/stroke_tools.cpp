// SPDX-License-Identifier: MIT
// The loops of the strokes that follow the mouse.
#include "tools/stroke_tools.h"

#include "draw/span_fill.h"
#include "draw/stroke.h"
#include "draw/tool_input.h"
#include "loop/input_turn.h"
#include "loop/tool_loop.h"
#include "runtime/clock.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "tools/tools.h"

namespace kelu {

namespace {

void draw_to(const Stroke& stroke, Point to)
{
    StrokePosition& last = stroke_position;
    if (to.x != last.stroke_last_x || to.y != last.stroke_last_y) {
        if (is_step(last.stroke_last_x, to.x) && is_step(last.stroke_last_y, to.y)) {
            stamp_tip(to.x, to.y, TOOL_DRAW, stroke.ink, stroke.style);
        } else {
            do_line(store.frame_bitmap, last.stroke_last_x, last.stroke_last_y, to.x, to.y, toolbox.brush_color,
                    line_stamp);
        }
    }
    last = {to.x, to.y};
}

void dab_at(const Stroke& stroke, Point now)
{
    const Point last{stroke_position.stroke_last_x, stroke_position.stroke_last_y};
    if (now == last) return;
    const int dab =
        driz_radius(last, now, tool_option(TOOL_DRIZ, options::dab_radius), tool_option(TOOL_DRIZ, options::taper));
    tool_input.tool_nodes[0] = now;
    walk_disc(now, dab, store.frame_bitmap.height(),
              [&](int left, int right, int y) { fill_span(left, right, y, stroke.ink); });
    stroke_position = {now.x, now.y};
}

/// Passes while the button is held; `visit` gets each position of the pointer, on the grid while that is on.
template <class Visit>
void follow_hand(Visit visit)
{
    do {
        if (!run_pass(passes::plain)) return;
        for (const Point at : pointer_path())
            visit(snapped(at));
    } while (left_down());
}

/// The drops of one tick, shared out among the positions of this turn.
void spray_along(const Stroke& stroke, std::span<const Point> centers)
{
    const int density = tool_option(TOOL_SPRAY, options::density);
    const int radius = tool_option(TOOL_SPRAY, options::spray_radius);
    const int count = static_cast<int>(centers.size());
    for (int i = 0; i < count; ++i) {
        const Point center = snapped(centers[i]);
        const int share = density * (i + 1) / count - density * i / count;
        spray_points(center.x, center.y, share, radius,
                     [&](int x, int y) { stamp_tip(x, y, TOOL_SPRAY, stroke.ink, no_tip); });
    }
}

} // namespace

void render_draw(const Stroke& stroke)
{
    draw_to(stroke, snapped({stroke.pointer_x, stroke.pointer_y}));
    follow_hand([&](Point at) { draw_to(stroke, at); });
}

void render_driz(const Stroke& stroke)
{
    dab_at(stroke, snapped_mouse());
    follow_hand([&](Point at) { dab_at(stroke, at); });
}

void render_spray(const Stroke& stroke)
{
    do {
        if (clock_state.tool_tick_flag.take() != 0) spray_along(stroke, pointer_path());
    } while (run_pass(passes::plain) && left_down());
}

} // namespace kelu
