// SPDX-License-Identifier: MIT
// Life of a slot: reset, search, visibility.
#include "gui/slots.h"

#include "base/log.h"
#include "runtime/input.h"
#include <algorithm>

namespace kelu {
namespace {

template <class... Fields>
void reset_fields(int slot, Fields&... fields)
{
    (fields.reset(slot), ...);
}

/// Applies `change` to the `hidden` word of each slot of a menu.
template <class Change>
void change_hidden(int first, Change change)
{
    const int end = std::min(first + gui.slot_count[first], gui_slots);
    for (int slot = first; slot < end; ++slot)
        gui.hidden[slot] = change(gui.hidden[slot]);
}

} // namespace

int gui_reset_slot(int slot)
{
    if (!gui_check_slot(slot, "gui_reset_slot")) return slot;
    // The logic must not meet half a slot: it goes out of sight first.
    gui.active[slot] = 0;
    if (gui_logic.slider_grab == slot) gui_logic.slider_grab = 0;
    reset_fields(slot, gui.hidden, gui.reserved, gui.hover_target, gui.kind, gui.x, gui.y, gui.w, gui.h, gui.slot_count,
                 gui.event);
    reset_fields(slot, gui.left_action, gui.right_action, gui.tooltip, gui.label_row);
    reset_fields(slot, gui.colour, gui.opacity, gui.stripes, gui.frame_state, gui.text_id, gui.ptr, gui.radio_ptr,
                 gui.sheet_x, gui.sheet_y, gui.field_error);
    reset_fields(slot, gui.list_rows, gui.row_height, gui.row_font, gui.row_text_y, gui.row_text_x, gui.row_width,
                 gui.hover_row, gui.list_items, gui.params, gui.items);
    reset_fields(slot, gui.scroll_on, gui.scroll_horizontal, gui.scroll_value, gui.scroll_min, gui.scroll_max,
                 gui.scroll_steps, gui.scroll_dx, gui.scroll_dy, gui.scroll_length, gui.wheel_step, gui.knob_sheet,
                 gui.arrow_sheet, gui.arrow_w, gui.arrow_h, gui.arrow_box, gui.knob_pos, gui.scroll_show,
                 gui.scroll_bind, gui.scroll_bind_on);
    reset_fields(slot, gui.field_text, gui.field_caret, gui.field_visible, gui.field_max, gui.field_scroll,
                 gui.field_font);
    return slot;
}

int gui_find_free_slot(int direction)
{
    constexpr int highest_from_above = 121; // above it are the overlays that outlive a menu
    const auto is_free = [](int slot) { return gui.active[slot] == 0 && gui.reserved[slot] == 0; };
    if (direction == 0) {
        for (int slot = 1; slot < gui_slots; ++slot) {
            if (is_free(slot)) return slot;
        }
    } else {
        for (int slot = highest_from_above; slot > 0; --slot) {
            if (is_free(slot)) return slot;
        }
    }
    return -1;
}

bool gui_check_slot(int slot, const char* caller)
{
    if (slot >= 0 && slot < gui_slots) return true;
    log_line("[ ERROR ] : GUI window parameter OOB in call to %s", caller);
    log_line("[ STATS ] : slot = %d", slot);
    return false;
}

void gui_clear_window()
{
    // Slot 0 holds the count: with its own reset the count is 0, and the rest must still go.
    for (int slot = std::min(int(gui.slot_count[0]), gui_slots) - 1; slot >= 0; --slot)
        gui_reset_slot(slot);
}

int gui_slot_at_press()
{
    for (int slot = gui_slots - 1; slot >= 0; --slot) {
        if (slot_live(slot) && slot_holds(slot, pointer.mouse_press_x, pointer.mouse_press_y)) return slot;
    }
    return -1;
}

bool slot_holds(int slot, int x, int y)
{
    const int left = gui.x[slot];
    const int top = gui.y[slot];
    return x >= left && x < left + gui.w[slot] && y >= top && y < top + gui.h[slot];
}

bool slot_live(int slot) { return gui.active[slot] != 0 && gui.hidden[slot] != 1; }

bool slot_hovered(int slot)
{
    const int x = pointer.mouse_x;
    const int y = pointer.mouse_y;
    const int left = gui.x[slot];
    const int top = gui.y[slot];
    return x >= left && x < left + gui.w[slot] - 1 && y >= top && y < top + gui.h[slot] - 1;
}

int slot_under_pointer()
{
    for (int slot = gui_slots - 1; slot >= 0; --slot) {
        if (slot_live(slot) && gui.hover_target[slot] != 0 && slot_hovered(slot)) return slot;
    }
    return -1;
}

void menu_hide(int first)
{
    change_hidden(first, [](int) { return 1; });
}

void menu_show(int first)
{
    change_hidden(first, [](int) { return 0; });
}

void menu_toggle_hidden(int first)
{
    change_hidden(first, [](int hidden) { return hidden ? 0 : 1; });
}

} // namespace kelu
