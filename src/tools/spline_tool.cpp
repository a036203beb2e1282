// SPDX-License-Identifier: MIT
// The loops in which the nodes are set and moved.
#include "tools/spline_tool.h"

#include "base/log.h"
#include "base/maths.h"
#include "draw/operation.h"
#include "draw/preview.h"
#include "draw/spline.h"
#include "loop/tool_loop.h"
#include "runtime/input.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "tools/operation.h"

namespace kelu {
namespace {

Point& user_node(int i) { return tool_input.tool_nodes[i]; }

/// Picks up every node near the pointer, one after the other; true when there was one.
bool pick_up_nodes()
{
    constexpr int pick_radius = 9; // closer than this many pixels
    bool picked = false;
    for (int i = 1; i <= spline.count && !ending(); ++i) {
        const Point node = user_node(i);
        if (node.x == unset_node) continue;
        if (dist2(node.x, node.y, view.frame_mouse_x, view.frame_mouse_y) >= pick_radius) continue;
        reposition_spline_node(i);
        picked = true;
    }
    return picked;
}

/// Sets a node at the press; a full table takes no more. A closed curve needs one entry for its way back.
void add_node()
{
    const int limit = node_limit - (closed_curve() ? 2 : 1);
    if (spline.count >= limit) return;
    sample_press();
    user_node(++spline.count) = snapped_press();
}

} // namespace

void reposition_spline_node(int slot)
{
    if (slot < 0 || slot >= node_limit) {
        log_line("[ ERROR ] : Slot OOB in call to reposition_spline_node! Slot = %d", slot);
        return;
    }
    CanvasButtons buttons;
    do {
        user_node(slot) = snapped_mouse();
    } while (run_pass(passes::node) && !buttons.left_pressed());
    sample_press();
    user_node(slot) = snapped_press();
    wait_left_release();
}

int gather_spline()
{
    tool_input.tool_nodes = all_nodes_unset;
    sample_press();
    user_node(0) = user_node(1) = snapped_press();
    wait_left_release();
    spline.count = 1;
    free_point_list();
    const PreviewScope shown(TOOL_SPLINE);
    while (run_pass(passes::menu) && !right_down()) {
        if (!left_down()) continue;
        wait_left_release();
        if (!pick_up_nodes()) add_node();
    }
    wait_right_release();
    const bool finished = !ending();
    if (finished) {
        rebuild_spline();
        draw_to_frame(0, 0, TOOL_SPLINE, current_ink(), toolbox.brush_tip);
    }
    free_point_list();
    return finished ? 1 : 0;
}

} // namespace kelu
