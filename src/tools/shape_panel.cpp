// The loop of the panels.
#include "tools/shape_panel.h"

#include "draw/tool_input.h"
#include "loop/frame.h"
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
    CanvasButtons buttons;
    bool accepted = false;
    bool open = true;
    while (open && !leaving()) {
        work.read();
        run_tool_pass();
        if (buttons.left_pressed()) {
            wait_left_release();
            const Point mouse = work.mouse();
            if (tool_input.bounds.holds(mouse.x, mouse.y)) work.drag();
        }
        if (buttons.right_pressed()) {
            wait_right_release();
            menu_toggle_hidden(0);
        }
        accepted = gui.event[PANEL_OKAY].take() != 0;
        const bool cancelled = gui.event[PANEL_CANCEL].take() != 0;
        open = !accepted && !cancelled;
    }
    return accepted;
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
    bool put_back = false;
    tool_input.show_bounds = 1;
    for (bool held = true; held && !leaving();) {
        const Point mouse = frame_mouse();
        node = snapped({start.x + mouse.x - grabbed.x, start.y + mouse.y - grabbed.y});
        run_frame(0);
        if (left_down()) {
            wait_left_release();
            held = false;
        } else if (right_down()) {
            wait_right_release();
            node = start;
            put_back = true;
            held = false;
        }
    }
    tool_input.show_bounds = 0;
    return put_back;
}

} // namespace kelu
