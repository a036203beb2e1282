// The rubber band and the shapes between two points.
#include "tools/two_point.h"

#include "base/maths.h"
#include "draw/preview.h"
#include "draw/span_fill.h"
#include "draw/tool_input.h"
#include "gui/menus.h"
#include "loop/frame.h"
#include "loop/tool_loop.h"
#include "runtime/input.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "tools/tools.h"
#include <algorithm>

namespace kelu {
namespace {

void stamp_line(int x1, int y1, int x2, int y2)
{
    do_line(store.frame_bitmap, x1, y1, x2, y2, toolbox.brush_color, line_stamp);
}

} // namespace

bool rubber_band(int node, int message)
{
    constexpr int no_message = -1;
    if (message != no_message) menus.status_message = message;
    bool given = false;
    bool cancelled = false;
    while (!given && !cancelled && !leaving()) {
        sample_press();
        if (left_down()) {
            given = true;
            tool_input.tool_nodes[static_cast<std::size_t>(node)] = {pointer.press_x, pointer.press_y};
            wait_left_release();
        }
        if (right_down()) {
            cancelled = true;
            wait_right_release();
        }
        if (!given && !cancelled) run_frame(0);
    }
    if (message != no_message) menus.status_message = 0;
    return given && !cancelled && !leaving();
}

int gather_two_points()
{
    const int tool = current_tool();
    sample_press();
    tool_input.tool_nodes[0] = snapped_press();
    bool given = false;
    {
        const ToolMeasure size({pointer.press_x, pointer.press_y}, tool == TOOL_LINE);
        wait_left_release();
        const PreviewScope shown(tool);
        given = rubber_band(1, -1);
    }
    if (!given) return 0;
    tool_input.tool_nodes[1] = snapped_press();
    draw_to_frame(0, 0, tool, current_ink(), toolbox.brush_tip);
    return 1;
}

void render_line(const Stroke&)
{
    const auto [from, to] = std::pair(tool_input.tool_nodes[0], tool_input.tool_nodes[1]);
    stamp_line(from.x, from.y, to.x, to.y);
}

void render_box(const Stroke& stroke)
{
    const auto [left, right] = std::minmax(tool_input.tool_nodes[0].x, tool_input.tool_nodes[1].x);
    const auto [top, bottom] = std::minmax(tool_input.tool_nodes[0].y, tool_input.tool_nodes[1].y);
    if (tool_filled(TOOL_BOX)) {
        const int end = std::min(bottom, store.frame_bitmap.height() - 1);
        for (int y = std::max(top, 0); y <= end; ++y)
            fill_span(left, right, y, stroke.ink);
        return;
    }
    stamp_line(left, top, right, top);
    stamp_line(left, bottom, right, bottom);
    stamp_line(left, top, left, bottom);
    stamp_line(right, top, right, bottom);
}

void render_circle(const Stroke& stroke)
{
    const Point center = tool_input.tool_nodes[0];
    const Point rim = tool_input.tool_nodes[1];
    const int radius = dist2(center.x, center.y, rim.x, rim.y);
    if (tool_filled(TOOL_CIRCLE)) {
        walk_disc(center, radius, store.frame_bitmap.height(),
                  [&](int left, int right, int y) { fill_span(left, right, y, stroke.ink); });
    } else {
        do_circle(store.frame_bitmap, center.x, center.y, radius, toolbox.brush_color, line_stamp);
    }
}

} // namespace kelu
