// SPDX-License-Identifier: MIT
// Geometry and logic of scroll bars.
#include "gui/scroll_bar.h"

#include "gui/slots.h"
#include "runtime/input.h"
#include <algorithm>
#include <cstdint>

namespace kelu {
namespace {

constexpr int capture_first_arrow = 2;
constexpr int capture_second_arrow = 3;
constexpr int first_repeat = 21; // logic passes
constexpr int next_repeat = 7;

/// Where a bar begins: the slot's corner and the bar's offset in it.
int bar_x(int slot) { return gui.x[slot] + gui.scroll_dx[slot]; }
int bar_y(int slot) { return gui.y[slot] + gui.scroll_dy[slot]; }

template <std::size_t N, int Start>
void assign(std::array<Cell<int, Start>, N>& cells, const std::array<int, N>& values)
{
    for (std::size_t i = 0; i < N; ++i)
        cells[i] = values[i];
}

/// True when the pointer is strictly inside a rectangle of w x h pixels.
bool pointer_strictly_in(int x, int y, int w, int h)
{
    return pointer.mouse_x > x && pointer.mouse_x < x + w && pointer.mouse_y > y && pointer.mouse_y < y + h;
}

bool pointer_in_rail(int slot)
{
    const auto& knobs = gui.knob_pos[slot];
    const int steps = gui.scroll_steps[slot];
    const int cross = knobs[knob_cross];
    if (cross == 0 || steps < 1) return false;
    const int first = knobs[0];
    const int reach = knobs[steps - 1] - first;
    const int knob_w = gui.knob_sheet[slot][2];
    const int knob_h = gui.knob_sheet[slot][3];
    return gui.scroll_horizontal[slot] ? pointer_strictly_in(first, cross, reach + knob_w, knob_h)
                                       : pointer_strictly_in(cross, first, knob_w, reach + knob_h);
}

/// Moves the value, within its range.
void step_value(int slot, int step)
{
    const int value = gui.scroll_value[slot] + step;
    gui.scroll_value[slot] = std::max(std::min(value, gui.scroll_max[slot] - 1), int(gui.scroll_min[slot]));
}

/// Starts the hold of an arrow when the pointer is on it: one step at once, repeats by `repeat_held_arrow`.
void press_arrow(int slot, int capture)
{
    const std::size_t at = capture == capture_first_arrow ? 0 : 2;
    const auto& box = gui.arrow_box[slot];
    if (!pointer_strictly_in(box[at], box[at + 1], gui.arrow_w[slot], gui.arrow_h[slot])) return;
    gui_logic.gui_capture = capture;
    gui_logic.repeat_count = 0;
    gui_logic.repeat_delay = first_repeat;
    gui_logic.gui_press_action = ACT_NONE;
    gui_logic.gui_press_slot = 1;
    gui_logic.repeat_slot = slot;
    pointer.gui_hold_slot = slot;
    pointer.mouse_held = static_cast<int16_t>(slot);
    step_value(slot, capture == capture_first_arrow ? -1 : 1);
}

void turn_wheel(int slot, int wheel)
{
    if (wheel == 0 || gui_logic.gui_capture != 0 || pointer.gui_hover_slot != slot) return;
    // Away from the user is up in a list and more on a slider.
    const bool more = gui.scroll_horizontal[slot] ? wheel > 0 : wheel < 0;
    step_value(slot, more ? int(gui.wheel_step[slot]) : -gui.wheel_step[slot]);
}

void drag_knob(int slot)
{
    const int at = gui.scroll_horizontal[slot] ? pointer.mouse_x : pointer.mouse_y;
    const int steps = gui.scroll_steps[slot];
    const auto& knobs = gui.knob_pos[slot];
    int index = 0;
    for (int k = 0; k < steps; ++k) {
        if (knobs[k] < at - 2) index = k;
    }
    const int min = gui.scroll_min[slot];
    const int max = gui.scroll_max[slot];
    gui.scroll_value[slot] =
        index == steps - 1 ? max - 1 : static_cast<int>(static_cast<double>(max - min) / steps * index + min);
}

} // namespace

void gui_set_scroll_look(int slot)
{
    const bool horizontal = gui.scroll_horizontal[slot] != 0;
    assign(gui.knob_sheet[slot], horizontal ? std::array{32, 125, 5, 9} : std::array{31, 112, 9, 7});
    assign(gui.arrow_sheet[slot], horizontal ? std::array{3, 141, 20, 141} : std::array{4, 114, 19, 114});
    gui.arrow_w[slot] = 7;
    gui.arrow_h[slot] = 7;
}

void place_arrows(int slot)
{
    const int x = bar_x(slot);
    const int y = bar_y(slot);
    const int length = gui.scroll_length[slot];
    if (gui.scroll_horizontal[slot]) {
        const int end = length ? x + length : gui.x[slot] + gui.w[slot] - 3 - gui.arrow_w[slot];
        assign(gui.arrow_box[slot], {x + 2, y + 1, end + 1, y + 1});
    } else {
        const int end = length ? y + length : gui.y[slot] + gui.h[slot] - gui.scroll_dy[slot] - gui.arrow_h[slot];
        assign(gui.arrow_box[slot], {x, y + 2, x, end - 2});
    }
}

void build_knob_table(int slot)
{
    place_arrows(slot);
    const auto& box = gui.arrow_box[slot];
    const bool horizontal = gui.scroll_horizontal[slot] != 0;
    const int steps = std::clamp(int(gui.scroll_steps[slot]), 1, max_knob_steps);
    // The knob's way between the arrows, without the knob itself.
    const int start = horizontal ? gui.arrow_w[slot] + 3 + bar_x(slot) : gui.arrow_h[slot] + 2 + bar_y(slot);
    const int way = horizontal ? box[2] - 2 - gui.knob_sheet[slot][2] - box[0] - gui.arrow_w[slot]
                               : box[3] + 1 - gui.knob_sheet[slot][3] - box[1] - gui.arrow_h[slot];
    const double share = steps > 1 ? static_cast<double>(way) / (steps - 1) : 0.0;
    for (int k = 0; k < steps; ++k)
        gui.knob_pos[slot][k] = static_cast<int16_t>(start + static_cast<int>(share * k));
    gui.knob_pos[slot][knob_cross] = static_cast<int16_t>(horizontal ? bar_y(slot) : bar_x(slot) - 2);
}

void forget_knob_tables(int first, int count)
{
    for (int slot = first; slot < std::min(first + count, gui_slots); ++slot)
        gui.knob_pos[slot][knob_cross] = 0;
}

int knob_index(int slot)
{
    const int steps = std::clamp(int(gui.scroll_steps[slot]), 1, max_knob_steps);
    const int range = gui.scroll_max[slot] - gui.scroll_min[slot];
    if (range < 1) return 0;
    const double index = (gui.scroll_value[slot] - gui.scroll_min[slot]) / (static_cast<double>(range) / steps);
    return std::clamp(static_cast<int>(index), 0, steps - 1);
}

void scroll_bar_pass(int slot, int buttons, int wheel)
{
    turn_wheel(slot, wheel);
    Shared<int>* bound = gui.scroll_bind[slot];
    if (bound && gui.scroll_bind_on[slot]) *bound = gui.scroll_value[slot];
    if (buttons == 1 && gui_logic.gui_capture == 0) {
        if (gui_logic.slider_grab == 0 && pointer_in_rail(slot)) gui_logic.slider_grab = slot;
        press_arrow(slot, capture_first_arrow);
        if (gui_logic.gui_capture == 0) press_arrow(slot, capture_second_arrow);
    }
    if (slot != 0 && gui_logic.slider_grab == slot) drag_knob(slot);
    if (buttons != 1) gui_logic.slider_grab = 0;
}

void repeat_held_arrow()
{
    const int capture = gui_logic.gui_capture;
    if (capture != capture_first_arrow && capture != capture_second_arrow) return;
    if (gui_button_state() == 0) {
        gui_logic.gui_capture = 0;
        return;
    }
    const int count = gui_logic.repeat_count + 1;
    gui_logic.repeat_count = count;
    if (count <= gui_logic.repeat_delay) return;
    gui_logic.repeat_count = 0;
    gui_logic.repeat_delay = next_repeat;
    step_value(gui_logic.repeat_slot, capture == capture_first_arrow ? -1 : 1);
}

} // namespace kelu
