// SPDX-License-Identifier: MIT
// The snapped pointer, presses and the measurement, for the loops of the tools.
#include "loop/tool_loop.h"

#include "draw/grid.h"
#include "gui/slots.h"
#include "runtime/input.h"
#include "runtime/measure.h"
#include "runtime/preferences.h"
#include "runtime/view.h"

namespace kelu {
namespace {

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
