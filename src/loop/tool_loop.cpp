// Buttons, the snapped pointer and the measurement, for the loops of the tools.
#include "loop/tool_loop.h"

#include "base/run_state.h"
#include "draw/grid.h"
#include "gui/slots.h"
#include "loop/actions.h"
#include "loop/frame.h"
#include "runtime/input.h"
#include "runtime/measure.h"
#include "runtime/preferences.h"
#include "runtime/view.h"

namespace kelu {
namespace {

constexpr int context_menu = 1; ///< hotkeys that answer in nearly every menu

bool pointer_over_menu()
{
    const int x = pointer.mouse_x;
    const int y = pointer.mouse_y;
    for (int slot = 0; slot < gui_slots; ++slot)
        if (slot_live(slot) && slot_holds(slot, x, y)) return true;
    return false;
}

bool pressed_on_canvas(bool down, bool& was_down)
{
    const bool fresh = down && !was_down;
    was_down = down;
    return fresh && !pointer_over_menu();
}

} // namespace

Point snapped(Point at) { return {snap_to_grid(at.x, at.y, 0), snap_to_grid(at.x, at.y, 1)}; }

Point frame_mouse()
{
    update_mouse_position();
    return {view.frame_mouse_x, view.frame_mouse_y};
}

Point snapped_mouse() { return snapped(frame_mouse()); }

Point snapped_press() { return snapped({pointer.press_x, pointer.press_y}); }

bool leaving() { return run_state.exit_requested != 0; }

bool left_down()
{
    poll_mouse_buttons();
    return pointer.mouse_left != 0;
}

bool right_down()
{
    poll_mouse_buttons();
    return pointer.mouse_right != 0;
}

void wait_left_release()
{
    while (left_down() && !leaving())
        run_frame(0);
}

void wait_right_release()
{
    while (right_down() && !leaving())
        run_frame(0);
}

void run_tool_pass()
{
    run_frame(0);
    hotkey_dispatch(context_menu);
}

bool CanvasButtons::left_pressed() { return pressed_on_canvas(left_down(), left_was_down_); }

bool CanvasButtons::right_pressed() { return pressed_on_canvas(right_down(), right_was_down_); }

ToolMeasure::ToolMeasure(Point anchor, bool distance)
    : started_(measure.measure_state == 0 && preferences.show_tool_distance != 0)
{
    if (!started_) return;
    measure.measure_x = anchor.x;
    measure.measure_y = anchor.y;
    measure.measure_is_distance = distance ? 1 : 0;
}

ToolMeasure::~ToolMeasure()
{
    if (started_ && measure.measure_state == 0) measure = {};
}

} // namespace kelu
