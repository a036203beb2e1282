// SPDX-License-Identifier: MIT
// The rubber band, and the flow of the two-point tools.
#include "tools/two_point_tool.h"

#include "draw/preview.h"
#include "draw/tool_input.h"
#include "gui/menus.h"
#include "loop/tool_loop.h"
#include "runtime/input.h"
#include "runtime/toolbox.h"
#include "tools/operation.h"

namespace kelu {

bool rubber_band(int node, int message)
{
    constexpr int no_message = -1;
    if (message != no_message) menus.status_message = message;
    bool given = false;
    bool cancelled = false;
    do {
        sample_press();
        if (left_down()) {
            given = true;
            tool_input.tool_nodes[node] = {pointer.press_x, pointer.press_y};
            wait_left_release();
        }
        if (right_down()) {
            cancelled = true;
            wait_right_release();
        }
    } while (!given && !cancelled && run_pass(passes::plain));
    if (message != no_message) menus.status_message = 0;
    return given && !cancelled && !ending();
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

} // namespace kelu
