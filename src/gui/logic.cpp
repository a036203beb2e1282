// SPDX-License-Identifier: MIT
// The passes of the logic tick, in their order.
#include "gui/logic.h"

#include "base/run_state.h"
#include "gui/click_dispatch.h"
#include "gui/field.h"
#include "gui/menus.h"
#include "gui/scroll_bar.h"
#include "gui/slots.h"
#include "platform/host.h"
#include "runtime/clock.h"
#include "runtime/input.h"
#include "runtime/preferences.h"
#include "runtime/shows.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int capture_press = 1;
constexpr int tooltip_delay = 50; // logic passes on one slot
constexpr int pulse_top = 98;
constexpr int pulse_bottom = 1;
constexpr int pulse_cycle = 98; // passes from a value and a direction to the same again

/// With a display that paces the presents, the pass can't overtake it.
bool held_by_the_display()
{
    if (preferences.frame_limiter != 0 || preferences.power_save == 0) return false;
    if (clock_state.present_ready == 0) return true;
    clock_state.present_ready = 0;
    return false;
}

void application_pass(int wheel)
{
    if (run_state.gui_active == 0) return;
    if (logic_hooks.hotkeys) logic_hooks.hotkeys();
    if (logic_hooks.follow_view) logic_hooks.follow_view();
    count_status_message();
    if (wheel != 0 && pointer.gui_hover_slot == -1 && logic_hooks.wheel_zoom) logic_hooks.wheel_zoom(wheel > 0 ? 1 : 0);
}

void find_hover_slot()
{
    pointer.gui_hover_slot = static_cast<int16_t>(slot_under_pointer());
    for (int slot = 0; slot < gui_slots; ++slot) {
        if (slot != pointer.gui_hover_slot) gui.hover_row[slot] = -1;
    }
}

void time_tooltip()
{
    const int hover = pointer.gui_hover_slot;
    if (hover == -1 || gui.tooltip[hover] == 0) {
        gui_logic.tooltip_active = -1;
        gui_logic.tooltip_slot = -1;
        gui_logic.tooltip_count = 0;
        return;
    }
    if (gui_logic.tooltip_slot == -1) {
        gui_logic.tooltip_slot = hover;
        gui_logic.tooltip_count = 0;
    }
    if (gui_logic.tooltip_slot == hover) {
        gui_logic.tooltip_count = gui_logic.tooltip_count + 1;
    } else {
        gui_logic.tooltip_active = -1;
        gui_logic.tooltip_slot = hover;
        gui_logic.tooltip_count = 0;
    }
    if (gui_logic.tooltip_count > tooltip_delay) {
        gui_logic.tooltip_active = hover;
        gui_logic.tooltip_count = tooltip_delay;
    }
}

void swing_pulse()
{
    if (gui_logic.pulse_wait > 0) {
        gui_logic.pulse_wait = gui_logic.pulse_wait - 1;
        return;
    }
    const int value = gui_logic.pulse_value + gui_logic.pulse_step;
    gui_logic.pulse_value = value;
    if (value >= pulse_top) gui_logic.pulse_step = -2;
    if (value <= pulse_bottom) gui_logic.pulse_step = 2;
}

/// True when the pointer is in row r of a list.
bool in_row(int slot, int r)
{
    const int width = gui.row_width[slot] ? gui.row_width[slot] : gui.w[slot];
    const int left = gui.row_text_x[slot] + gui.x[slot];
    const int top = gui.y[slot] + gui.row_text_y[slot] + r * gui.row_height[slot];
    return left + 1 < pointer.mouse_x && pointer.mouse_x < left - 2 + width && top <= pointer.mouse_y &&
           pointer.mouse_y < top + gui.row_height[slot] + 1;
}

/// True when a row in view shows an entry that has a text.
bool row_filled(int slot, int r)
{
    const int entry = r + gui.scroll_value[slot];
    return entry >= 0 && entry < max_list_items && gui.list_items[slot][entry] != 0;
}

/// Two rows meet in a line of pixels that belongs to both: there it is the row that the renderer highlights.
int row_in_list(int slot)
{
    if (gui.active[slot] == 0) return -1;
    const int pitch = gui.row_height[slot];
    const int highlighted = pitch > 0 ? (pointer.mouse_y - 1 - gui.y[slot]) / pitch : 0;
    int found = -1;
    for (int r = 0; r < gui.list_rows[slot] && found < highlighted; ++r)
        if (row_filled(slot, r) && in_row(slot, r)) found = r;
    return found;
}

void find_hover_row()
{
    const int slot = pointer.gui_hover_slot;
    if (slot != -1) gui.hover_row[slot] = row_in_list(slot);
}

void capture(int action, int slot)
{
    gui_logic.gui_press_action = action;
    gui_logic.gui_press_slot = slot;
    gui_logic.gui_capture = capture_press;
}

void press_slot(int slot, int buttons)
{
    const int action = buttons == 1 ? gui.left_action[slot] : buttons == 2 ? gui.right_action[slot] : int(ACT_NONE);
    if (action != ACT_NONE && gui_logic.gui_capture == 0 && run_state.gui_clicks_enabled != 0 && slot_hovered(slot))
        capture(action, slot);
}

void press_row(int slot, int buttons)
{
    if (buttons == 0 || gui_logic.gui_capture != 0 || gui.list_rows[slot] == 0 || gui.hover_row[slot] == -1) return;
    capture(ACT_ROW, slot);
    gui_logic.gui_press_row = int(gui.hover_row[slot]);
}

/// The slot in front sees the press first.
void slot_passes(int wheel)
{
    const int buttons = gui_button_state();
    for (int slot = gui_slots - 1; slot >= 0; --slot) {
        if (!slot_live(slot)) continue;
        if (gui_logic.gui_key_focus == slot) gui_field_editor(slot);
        press_slot(slot, buttons);
        if (gui_logic.gui_capture != 0 || buttons == 0) gui_logic.slider_grab = 0;
        if (gui.scroll_on[slot]) scroll_bar_pass(slot, buttons, wheel);
        press_row(slot, buttons);
    }
}

} // namespace

int list_row_under_pointer(int slot) { return slot_under_pointer() == slot ? row_in_list(slot) : -1; }

void gui_logic_tick()
{
    if (held_by_the_display() || gui_logic.gui_logic_paused != 0) return;
    poll_mouse_buttons();
    const int wheel_now = wheel_position();
    const int wheel = wheel_now - pointer.last_mouse_z;
    application_pass(wheel);
    find_hover_slot();
    time_tooltip();
    swing_pulse();
    dispatch_click();
    find_hover_row();
    repeat_held_arrow();
    if (gui_logic.gui_key_focus == -1) drop_field_presses();
    slot_passes(wheel);
    pointer.last_mouse_z = wheel_now;
}

bool logic_waited_for()
{
    const int hover = pointer.gui_hover_slot;
    const bool times_tooltip = hover != -1 && gui.tooltip[hover] != 0 && gui_logic.tooltip_active != hover;
    return shows.lively > 0 || shows.pulse != 0 || times_tooltip || menus.status_message_ticks > 0 ||
           gui_logic.gui_key_focus != -1;
}

void pass_logic(int n)
{
    if (gui_logic.gui_logic_paused != 0) return;
    const int wait = std::min(n, int(gui_logic.pulse_wait));
    gui_logic.pulse_wait = gui_logic.pulse_wait - wait;
    for (int left = (n - wait) % pulse_cycle; left > 0; --left)
        swing_pulse();
}

void install_logic_timer()
{
    const bool fast = preferences.frame_limiter == 0 && preferences.power_save != 0;
    platform::host->install_timer(
        {gui_logic_tick, fast ? logic_period_fast : logic_period_slow, logic_waited_for, pass_logic});
}

} // namespace kelu
