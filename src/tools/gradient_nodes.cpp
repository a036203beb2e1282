// The nodes' preview, and the loop in which they are taken, carried and put down by clicks.
#include "tools/gradient_nodes.h"

#include "base/log.h"
#include "base/maths.h"
#include "base/run_state.h"
#include "draw/dashes.h"
#include "draw/gradient.h"
#include "draw/preview.h"
#include "draw/tool_hooks.h"
#include "gui/text.h"
#include "loop/frame.h"
#include "loop/tool_loop.h"
#include "runtime/frame_snapshot.h"
#include "runtime/hotkeys.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "tools/cel_loop.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int context_node_move = 3; ///< hotkeys that answer while a node is being placed
constexpr int node_radius = 8;       ///< of the circle that marks a node; a press within it takes the node

enum NodeId : int { NODE_NONE, NODE_START, NODE_END };

/// Owner: reposition_gradient, except for what the preview notes. Main thread.
struct NodePlacing {
    int grabbed = NODE_NONE; ///< the node that follows the mouse
    int nodes_in_view = 1;   ///< 1: a node lay in the view in the last preview
};
NodePlacing placing;

/// One gradient as the loop sees it: which columns of its options hold a node, and which axes count.
struct NodeColumns {
    int ink;
    int start_x, start_y, end_x, end_y; ///< columns, -1: the axis doesn't count
};
constexpr NodeColumns node_columns[] = {
    {INK_H_GRAD, GRADIENT_START, -1, GRADIENT_END, -1},
    {INK_L_GRAD, GRADIENT_START_X, GRADIENT_START_Y, GRADIENT_END_X, GRADIENT_END_Y},
    {INK_R_GRAD, GRADIENT_START_X, GRADIENT_START_Y, GRADIENT_END_X, GRADIENT_END_Y},
    {INK_V_GRAD, -1, GRADIENT_START, -1, GRADIENT_END},
};

const NodeColumns* columns_of(int ink)
{
    const auto* found = std::find_if(std::begin(node_columns), std::end(node_columns),
                                     [ink](const NodeColumns& columns) { return columns.ink == ink; });
    return found == std::end(node_columns) ? nullptr : found;
}

Shared<int>& option(int ink, int column)
{
    return toolbox.ink_table[static_cast<std::size_t>(ink)][static_cast<std::size_t>(column)];
}

/// A node. An axis that doesn't count takes the coordinate of `other`.
Point node_at(const NodeColumns& columns, NodeId node, Point other)
{
    const int x = node == NODE_START ? columns.start_x : columns.end_x;
    const int y = node == NODE_START ? columns.start_y : columns.end_y;
    return {x < 0 ? other.x : int(option(columns.ink, x)), y < 0 ? other.y : int(option(columns.ink, y))};
}

void put_node(const NodeColumns& columns, int node, Point at)
{
    const int x = node == NODE_START ? columns.start_x : columns.end_x;
    const int y = node == NODE_START ? columns.start_y : columns.end_y;
    if (x >= 0) option(columns.ink, x) = at.x;
    if (y >= 0) option(columns.ink, y) = at.y;
}

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
        if (placing.grabbed == node) {
            placing.grabbed = NODE_NONE;
        } else if (placing.grabbed == NODE_NONE) {
            placing.grabbed = node;
        }
    }
}

void jump_to(const NodeColumns& columns, NodeId node)
{
    center_view_on(node_at(columns, node, {view.view_center_x, view.view_center_y}));
}

/// Runs frames while the hotkey that ends the placing is held.
void wait_hotkey_release()
{
    while (hotkey_test(ACTION_INK_OPTION) && !leaving())
        run_frame(0);
}

void place_nodes(const NodeColumns& columns)
{
    OffscreenWindow offscreen(TEXT_NODES_OFFSCREEN, TEXT_JUMP_TO_START, TEXT_JUMP_TO_END,
                              OffscreenWindow::Behind::NOTHING);
    CanvasButtons buttons;
    wait_hotkey_release();
    while (!leaving()) {
        run_frame(0);
        call_hook(tool_hooks.hotkey_dispatch, context_node_move);
        if (buttons.left_pressed()) {
            press_nodes(columns, frame_mouse());
            wait_left_release();
        }
        if (placing.grabbed != NODE_NONE) put_node(columns, placing.grabbed, frame_mouse());
        offscreen.show(placing.nodes_in_view == 0);
        if (offscreen.first_clicked()) jump_to(columns, NODE_START);
        if (offscreen.second_clicked()) jump_to(columns, NODE_END);
        if (hotkey_test(ACTION_INK_OPTION)) {
            wait_hotkey_release();
            return;
        }
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
    call_hook(tool_hooks.freeze_menu);
    gui_clear_window();
    menus.status_message = -1;
    menus.menu_id = MENU_DIALOG;
    clamp_nodes(*columns);
    placing = {};
    clear_to_color(screen_state.tool_overlay, mask_magenta);
    {
        const PreviewScope shown(ink + preview_of_ink);
        place_nodes(*columns);
    }
    clear_to_color(screen_state.tool_overlay, mask_magenta);
    clear_ghost();
    close_screen();
    menus.status_message = TIP_NONE;
    call_hook(tool_hooks.build_draw_menu);
    if (menu_was_hidden) menu_hide(0);
    update_gradient_geometry();
}

void draw_gradient_nodes(BITMAP* overlay, Point origin, int ink)
{
    const NodeColumns* columns = columns_of(ink);
    if (!columns) return;
    const auto level = static_cast<std::size_t>(frame_snapshot.zoom);
    const int w = static_cast<int>(view.view_w[level]);
    const int h = static_cast<int>(view.view_h[level]);
    const Point middle{origin.x + w / 2, origin.y + h / 2};
    const auto shown_at = [&](NodeId node) {
        const Point at = node_at(*columns, node, middle);
        return Point{at.x - origin.x, at.y - origin.y};
    };
    const auto in_view = [&](Point at) { return at.x >= 0 && at.y >= 0 && at.x < w && at.y < h; };
    const Point start = shown_at(NODE_START);
    const Point end = shown_at(NODE_END);
    {
        const DashPen pen(overlay);
        pen.line(start, end);
        pen.circle(start, node_radius);
        pen.circle(end, node_radius);
    }
    set_outlined_text(FONT_NARROW, SET_LIGHT_ALT);
    draw_text(overlay, start.x - 9, start.y - 15, "START");
    draw_text(overlay, end.x - 5, end.y - 15, "END");
    placing.nodes_in_view = in_view(start) || in_view(end) ? 1 : 0;
}

} // namespace kelu
