// SPDX-License-Identifier: MIT
// Stamps, and the display test between them.
#include "draw/operation.h"

#include "base/log.h"
#include "draw/inks.h"
#include "draw/tips.h"
#include "runtime/clock.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"

namespace kelu {
namespace {

constexpr int last_argument = 99; ///< highest brush, ink and style that a call may name

} // namespace

bool operation_arguments_valid(int brush, int ink, int style)
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

void stamp_tip(int x, int y, int brush, int ink, int style)
{
    if (!operation_arguments_valid(brush, ink, style) || !in_bitmap(store.frame_bitmap, x, y)) return;
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
    if (operation.show_progress && clock_state.tool_ticks > pending) operation.show_progress();
}

} // namespace kelu
