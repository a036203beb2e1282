// SPDX-License-Identifier: MIT
// The loop in which the mouse sets its second axis.
#include "tools/oval_tool.h"

#include "base/maths.h"
#include "draw/operation.h"
#include "draw/oval.h"
#include "draw/preview.h"
#include "draw/span_fill.h"
#include "draw/tool_input.h"
#include "draw/tool_options.h"
#include "draw/undo.h"
#include "loop/tool_loop.h"
#include "runtime/input.h"
#include "runtime/store.h"
#include "tools/operation.h"
#include "tools/two_point_tool.h"
#include <cmath>

namespace kelu {
namespace {

/// The ellipse on the axis of the nodes whose second axis ends at the mouse.
Points ellipse_to(Point mouse)
{
    const Point a = tool_input.tool_nodes[0];
    const Point b = tool_input.tool_nodes[1];
    const int cx = (a.x + b.x) / 2;
    const int cy = (a.y + b.y) / 2;
    const int ra = dist2(a.x, a.y, b.x, b.y) / 2;
    const int rb = dist2(cx, cy, mouse.x, mouse.y);
    const auto degrees = static_cast<int>(std::lround(360 - angle_between(cx, cy, mouse.x, mouse.y)));
    return interpolate_ellipse(cx, cy, ra, rb, degrees, 360);
}

/// Follows the mouse until a left click on the canvas; a right click hides or shows the menu. False when the program
/// ends.
bool choose_second_axis()
{
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .right_click = RightClick::HIDES};
    CanvasButtons buttons;
    const auto follow = [] { tool_input.point_list = ellipse_to(snapped_mouse()); };
    for (follow(); run_pass(pass); follow()) {
        if (!buttons.left_pressed()) continue;
        wait_left_release();
        return !ending();
    }
    return false;
}

void draw_oval()
{
    const int ink = current_ink();
    const UndoableOperation step;
    const OperationScope scope(show_waiting_frame);
    if (tool_filled(TOOL_OVAL)) {
        walk_row_extents(tool_input.point_list, [&](int left, int right, int y) { fill_span(left, right, y, ink); });
        return;
    }
    for (const Point p : tool_input.point_list)
        stamp_tip(p.x, p.y, TOOL_OVAL, ink, toolbox.brush_tip);
}

} // namespace

int gather_oval()
{
    sample_press();
    tool_input.tool_nodes[0] = snapped_press();
    tool_input.tool_nodes[1] = {unset_node, unset_node};
    wait_left_release();
    {
        const PreviewScope first_axis(TOOL_LINE);
        if (!rubber_band(1, -1)) return 0;
    }
    tool_input.tool_nodes[1] = snapped_press();
    const PreviewScope shown(TOOL_OVAL);
    const bool chosen = choose_second_axis();
    if (chosen) draw_oval();
    free_point_list();
    return chosen ? 1 : 0;
}

} // namespace kelu
