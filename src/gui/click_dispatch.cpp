// SPDX-License-Identifier: MIT
// The action codes as a table: one row each.
#include "gui/click_dispatch.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/field.h"
#include "gui/kinds.h"
#include "gui/logic.h"
#include "gui/menus.h"
#include "gui/slots.h"
#include "runtime/input.h"
#include "runtime/jobs.h"
#include "runtime/toolbox.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int radio_partners = 3; // entries of `params` that name the other options of a radio

void flip_kind(int slot) { gui.kind[slot] = gui.kind[slot] == KIND_BUTTON ? KIND_BUTTON_LIT : KIND_BUTTON; }

template <int Tab>
bool switch_colour_tab(int)
{
    if (logic_hooks.colour_tab) logic_hooks.colour_tab(Tab);
    return true;
}

bool raise_one(int slot)
{
    gui.event[slot] = 1;
    return true;
}

bool raise_number(int slot)
{
    gui.event[slot] = slot;
    return true;
}

bool raise_right(int slot)
{
    gui.event[slot] = EVENT_RIGHT;
    return true;
}

bool focus_field(int slot)
{
    gui_set_key_focus(slot, false);
    return true;
}

/// Flips option `list_items[1]` of row `list_items[0]`; any value but 0 and 1 is brought back to one of them.
bool flip_option(int slot, OptionTable& table, std::string_view owner, std::string_view column)
{
    const int row = gui.list_items[slot][0];
    const int option = gui.list_items[slot][1];
    if (row < 0 || row >= option_rows) {
        log_line("[ ERROR ] : %s slot OOB in case 25. Tool = %d", owner, row);
        return false;
    }
    if (option < 0 || option >= option_columns) {
        log_line("[ ERROR ] : %s slot OOB in case 25. Slot = %d", column, option);
        return false;
    }
    flip_kind(slot);
    Shared<int>& value = table[row][option];
    value = value > 0 ? 0 : 1;
    return true;
}

bool flip_tool_option(int slot) { return flip_option(slot, toolbox.tool_table, "Tool", "Option"); }
bool flip_ink_option(int slot) { return flip_option(slot, toolbox.ink_table, "Ink", "Ink"); }

bool flip_button(int slot)
{
    flip_kind(slot);
    return true;
}

bool start_drag(int slot)
{
    const int window = slot - 1;
    if (window < 0) return true;
    const int row = gui.label_row[slot] ? gui.label_row[slot] : menus.menu_id;
    push_to_job(JOB_DRAG_WINDOW, {row, pointer.mouse_x - gui.x[window], pointer.mouse_y - gui.y[window], window});
    return true;
}

bool toggle_button(int slot)
{
    flip_kind(slot);
    return raise_number(slot);
}

bool light_button(int slot)
{
    if (gui.kind[slot] != KIND_BUTTON) return true;
    gui.kind[slot] = KIND_BUTTON_LIT;
    return raise_number(slot);
}

bool choose_radio(int slot)
{
    gui.kind[slot] = KIND_RADIO_ON;
    if (Shared<int>* option = gui.radio_ptr[slot]) *option = gui.list_items[slot][0];
    for (std::size_t i = 0; i < radio_partners; ++i) {
        const int partner = gui.params[slot][i];
        if (partner > 0 && partner < gui_slots) gui.kind[partner] = KIND_RADIO_OFF;
    }
    return true;
}

struct ActionRow {
    SlotAction code;
    bool inside;           ///< the press must have been on the slot
    bool (*run)(int slot); ///< false: refused, what was pressed stays on record
};

constexpr ActionRow actions[] = {
    {ACT_TAB_VGA, false, switch_colour_tab<0>},
    {ACT_TAB_RGB, false, switch_colour_tab<1>},
    {ACT_TAB_HLS, false, switch_colour_tab<2>},
    {ACT_TAB_HSV, false, switch_colour_tab<3>},
    {ACT_PRESS, true, raise_one},
    {ACT_RELEASE, false, raise_one},
    {ACT_FOCUS, false, focus_field},
    {ACT_CLICK, true, raise_number},
    {ACT_RIGHT_CLICK, true, raise_right},
    {ACT_TOOL_OPTION, true, flip_tool_option},
    {ACT_INK_OPTION, true, flip_ink_option},
    {ACT_FLIP, true, flip_button},
    {ACT_DRAG, true, start_drag},
    {ACT_TOGGLE, true, toggle_button},
    {ACT_LIGHT, true, light_button},
    {ACT_RADIO, true, choose_radio},
};

void forget_press()
{
    gui_logic.gui_press_action = ACT_NONE;
    gui_logic.gui_press_slot = 0;
    gui_logic.gui_press_row = 0;
}

} // namespace

void dispatch_click()
{
    if (run_state.gui_active == 0 || gui_logic.gui_capture == 0 || gui_button_state() != 0) return;
    gui_logic.gui_capture = 0;
    const int code = gui_logic.gui_press_action;
    const int slot = gui_logic.gui_press_slot;
    const auto* row = std::ranges::find(actions, code, [](const ActionRow& action) { return int(action.code); });
    bool done = true;
    if (row != std::end(actions) && (!row->inside || slot_holds(slot, pointer.mouse_press_x, pointer.mouse_press_y)))
        done = row->run(slot);
    if (done) forget_press();
}

} // namespace kelu
