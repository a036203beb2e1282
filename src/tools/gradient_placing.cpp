// SPDX-License-Identifier: MIT
// The loop in which they are taken, carried and put down by clicks.
#include "tools/gradient_placing.h"

#include "base/log.h"
#include "base/maths.h"
#include "base/run_state.h"
#include "draw/gradient.h"
#include "draw/gradient_nodes.h"
#include "draw/preview.h"
#include "loop/actions.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "loop/tool_loop.h"
#include "runtime/hotkeys.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "tools/cel_loop.h"
#include <algorithm>

namespace kelu {
namespace {

void clamp_nodes(const NodeColumns& columns)
{
    for (const NodeId node : {NODE_START, NODE_END}) {
        const Point at = node_at(columns, node, {});
        put_node(columns, node,
                 {std::clamp(at.x, 0, store.frame_bitmap.width() - 1),
                  std::clamp(at.y, 0, store.frame_bitmap.height() - 1)});
    }
}

/// Takes or puts down a node that the press is near. Near both, a carried start is exchanged for the end.
void press_nodes(const NodeColumns& columns, Point mouse)
{
    const auto near = [&](NodeId node) {
        const Point at = node_at(columns, node, mouse);
        return dist2(at.x, at.y, mouse.x, mouse.y) <= node_radius;
    };
    for (const NodeId node : {NODE_START, NODE_END}) {
        if (!near(node)) continue;
        if (node_placing.grabbed == node) {
            node_placing.grabbed = NODE_NONE;
        } else if (node_placing.grabbed == NODE_NONE) {
            node_placing.grabbed = node;
        }
    }
}

void jump_to(const NodeColumns& columns, NodeId node)
{
    center_view_on(node_at(columns, node, {view.view_center_x, view.view_center_y}));
}

void place_nodes(const NodeColumns& columns)
{
    OffscreenWindow offscreen(TEXT_NODES_OFFSCREEN, TEXT_JUMP_TO_START, TEXT_JUMP_TO_END);
    constexpr Pass pass{.hotkeys = WHILE_MOVING, .leave_key = ACTION_INK_OPTION};
    CanvasButtons buttons;
    wait_for_release(ACTION_INK_OPTION);
    while (run_pass(pass)) {
        if (buttons.left_pressed()) {
            press_nodes(columns, frame_mouse());
            wait_left_release();
        }
        if (node_placing.grabbed != NODE_NONE) put_node(columns, node_placing.grabbed, frame_mouse());
        offscreen.show(node_placing.nodes_in_view == 0);
        if (offscreen.first_clicked()) jump_to(columns, NODE_START);
        if (offscreen.second_clicked()) jump_to(columns, NODE_END);
        if (buttons.right_pressed()) {
            wait_right_release();
            return;
        }
    }
}

} // namespace

void reposition_gradient(int ink)
{
    const NodeColumns* columns = columns_of(ink);
    if (!columns) {
        log_line("[ ERROR ] : Unknown type passed to reposition_gradient! Type = %d", ink);
        return;
    }
    const bool menu_was_hidden = gui.hidden[0] != 0;
    freeze_menu();
    gui_clear_window();
    menus.status_message = -1;
    menus.menu_id = MENU_DIALOG;
    clamp_nodes(*columns);
    node_placing = {};
    clear_to_color(screen_state.tool_overlay, mask_magenta);
    {
        const PreviewScope shown(ink + preview_of_ink);
        place_nodes(*columns);
    }
    clear_to_color(screen_state.tool_overlay, mask_magenta);
    clear_ghost();
    close_screen();
    menus.status_message = TIP_NONE;
    build_draw_menu();
    if (menu_was_hidden) menu_hide(0);
    update_gradient_geometry();
}

} // namespace kelu
