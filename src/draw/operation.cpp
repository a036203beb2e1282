// The spine of every stroke, and the stroke of "DRAW".
#include "draw/operation.h"

#include "base/log.h"
#include "draw/grid.h"
#include "draw/inks.h"
#include "draw/tips.h"
#include "draw/undo.h"
#include "loop/frame.h"
#include "runtime/clock.h"
#include "runtime/input.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "tools/tools.h"
#include <cstdlib>

namespace kelu {
namespace {

constexpr int last_argument = 99; ///< highest brush, ink and style that a call may name

bool arguments_valid(int brush, int ink, int style)
{
    if (brush < 0 || brush > last_argument) {
        log_line("[ ERROR ] : Brush type is OOB in call to draw_to_frame! brush = %d", brush);
        return false;
    }
    if (style < no_tip || style > last_argument) {
        log_line("[ ERROR ] : Brush style is OOB in call to draw_to_frame! style = %d", style);
        return false;
    }
    if (ink < 0 || ink > last_argument) {
        log_line("[ ERROR ] : Ink type is OOB in call to draw_to_frame! Ink = %d", ink);
        return false;
    }
    return true;
}

/// True when the stroke has not begun, or has moved by at most one pixel on this axis.
bool is_step(int last, int now) { return last == -1 || std::abs(now - last) <= 1; }

} // namespace

void draw_to_frame(int x, int y, int brush, int ink, int style)
{
    if (!arguments_valid(brush, ink, style) || !in_bitmap(store.frame_bitmap, x, y)) return;
    const int pointer_x = view.frame_mouse_x;
    const int pointer_y = view.frame_mouse_y;
    push_undo(false);
    clear_to_color(store.coverage_bitmap, 0);
    if (brush >= TOOL_COUNT) return;
    const StrokeRender render = tools[static_cast<std::size_t>(brush)].render;
    if (render) render({x, y, brush, ink, style, pointer_x, pointer_y});
}

void stamp_tip(int x, int y, int brush, int ink, int style)
{
    if (!arguments_valid(brush, ink, style) || !in_bitmap(store.frame_bitmap, x, y)) return;
    if (style == no_tip) {
        apply_ink(x, y, ink, toolbox.brush_color, 0);
    } else {
        stamp_ink(x, y, ink, toolbox.brush_color, tip_cell(style));
    }
}

void line_stamp(BITMAP*, int x, int y, int)
{
    stamp_tip(x, y, current_tool(), current_ink(), toolbox.brush_tip);
    keep_picture_alive();
}

void keep_picture_alive(int pending)
{
    if (clock_state.tool_ticks > pending) run_frame(1);
}

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

} // namespace kelu
