// The loops of the strokes that follow the mouse.
#include "tools/stroke_tools.h"

#include "draw/grid.h"
#include "draw/span_fill.h"
#include "draw/stroke.h"
#include "draw/tool_input.h"
#include "loop/frame.h"
#include "loop/tool_loop.h"
#include "runtime/clock.h"
#include "runtime/input.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "tools/tools.h"

namespace kelu {

void render_draw(const Stroke& stroke)
{
    StrokePosition& last = stroke_position;
    int mouse_x = stroke.pointer_x;
    int mouse_y = stroke.pointer_y;
    do {
        const int x = snap_to_grid(mouse_x, mouse_y, 0);
        const int y = snap_to_grid(mouse_x, mouse_y, 1);
        if (x != last.stroke_last_x || y != last.stroke_last_y) {
            if (is_step(last.stroke_last_x, x) && is_step(last.stroke_last_y, y)) {
                stamp_tip(x, y, TOOL_DRAW, stroke.ink, stroke.style);
            } else {
                do_line(store.frame_bitmap, last.stroke_last_x, last.stroke_last_y, x, y, toolbox.brush_color,
                        line_stamp);
            }
        }
        last = {x, y};
        run_frame(0);
        mouse_x = view.frame_mouse_x;
        mouse_y = view.frame_mouse_y;
        poll_mouse_buttons();
    } while (pointer.mouse_left != 0);
}

void render_driz(const Stroke& stroke)
{
    const int radius = tool_option(TOOL_DRIZ, options::dab_radius);
    const int taper = tool_option(TOOL_DRIZ, options::taper);
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
    const int density = tool_option(TOOL_SPRAY, options::density);
    const int radius = tool_option(TOOL_SPRAY, options::spray_radius);
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
