// SPDX-License-Identifier: MIT
// The loop of the panels.
#include "tools/shape_panel.h"

#include "draw/tool_input.h"
#include "loop/home_strip.h"
#include "loop/tool_loop.h"
#include <algorithm>

namespace kelu {

void set_panel_slider(int slot, int value)
{
    gui.scroll_value[slot] = std::clamp<int>(value, gui.scroll_min[slot], gui.scroll_max[slot] - 1);
    gui.scroll_show[slot] = &gui.scroll_value[slot];
}

bool run_shape_panel(const ShapePanelWork& work)
{
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .right_click = RightClick::HIDES};
    CanvasButtons buttons;
    for (work.read(); run_pass(pass); work.read()) {
        if (buttons.left_pressed()) {
            wait_left_release();
            const Point mouse = work.mouse();
            if (tool_input.bounds.holds(mouse.x, mouse.y)) work.drag();
        }
        if (gui.event[PANEL_OKAY].take() != 0) return true;
        if (gui.event[PANEL_CANCEL].take() != 0) return false;
    }
    return false;
}

void close_shape_panel()
{
    close_screen();
    build_draw_menu();
}

bool drag_anchor()
{
    Point& node = tool_input.tool_nodes[0];
    const Point start = node;
    const Point grabbed = frame_mouse();
    const auto follow = [&] {
        const Point mouse = frame_mouse();
        node = snapped({start.x + mouse.x - grabbed.x, start.y + mouse.y - grabbed.y});
    };
    tool_input.show_bounds = 1;
    bool put_back = false;
    for (follow(); run_pass(passes::plain); follow()) {
        put_back = right_down();
        if (!left_down() && !put_back) continue;
        wait_left_release();
        wait_right_release();
        break;
    }
    if (put_back) node = start;
    tool_input.show_bounds = 0;
    return put_back;
}

} // namespace kelu
