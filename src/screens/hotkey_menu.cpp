// SPDX-License-Identifier: MIT
// The list of actions, the cells of their keys, and the question about doubles.
#include "screens/hotkey_menu.h"

#include "gui/build.h"
#include "gui/scheme.h"
#include "loop/actions.h"
#include "loop/freeze.h"
#include "loop/pass.h"
#include "runtime/hotkeys.h"
#include "screens/action_table.h"
#include "screens/dialogs.h"
#include "screens/remap_dialog.h"
#include <array>

namespace kelu {
namespace {

enum { SLOT_LIST = 2, SLOT_CELL_0 = 6, SLOT_OKAY = 25, SLOT_DEFAULTS = 26, SLOT_CANCEL = 27, menu_slots = 30 };

constexpr int shown_rows = 9;
constexpr int cells = 2 * shown_rows;
constexpr int scroll_positions = ACTION_LIST_END - shown_rows + 1;
constexpr int listed_actions = ACTION_LIST_END + 1;

constexpr std::array layout_rows{
    title_row(2, 2, 51, TEXT_HOTKEYS),
    SlotRow{SLOT_LIST, 2, 12, 316, KIND_LIST}
        .high(93)
        .with(ListRows{.first_text = first_action_name,
                       .items = listed_actions,
                       .rows = shown_rows,
                       .pitch = 10,
                       .font = 5,
                       .text_y = 1})
        .with(ScrollBar{.steps = scroll_positions, .wheel = 2, .dx = 306}),
    SlotRow{3, 54, 2, 107, KIND_BUTTON, TEXT_ACTION},
    SlotRow{4, 162, 2, 70, KIND_BUTTON, TEXT_PRIMARY},
    SlotRow{5, 233, 2, 85, KIND_BUTTON, TEXT_ALTERNATE},
    push_row(SLOT_OKAY, 2, 106, 64, TEXT_OKAY),
    push_row(SLOT_DEFAULTS, 128, 106, 64, TEXT_DEFAULTS),
    push_row(SLOT_CANCEL, 254, 106, 64, TEXT_CANCEL),
};
constexpr MenuLayout layout{.menu_id = MENU_HOTKEYS,
                            .row = WINDOW_HOTKEYS_AND_OPTIONS,
                            .x = 0,
                            .y = 123,
                            .w = 319,
                            .h = 116,
                            .slot_count = menu_slots,
                            .slots = layout_rows};

/// The action and the column (0 primary, 1 alternate) of a cell, as the list is scrolled.
struct KeyPlace {
    int action, column;
};

KeyPlace place_of(int cell) { return {gui.scroll_value[SLOT_LIST] + cell / 2, cell % 2}; }

Shared<int>& code_at(KeyPlace place)
{
    HotkeyRow& row = hotkeys.hotkey_table[place.action];
    return place.column == 0 ? row.primary : row.alternate;
}

void build_hotkey_menu()
{
    const Origin at = build_screen(layout);
    for (int cell = 0; cell < cells; ++cell) {
        const int x = cell % 2 == 0 ? 162 : 233;
        build_slot(
            SlotRow{SLOT_CELL_0 + cell, x, 14 + 10 * (cell / 2), 70, KIND_HOTKEY, TEXT_NONE, ACT_CLICK, ACT_RIGHT_CLICK}
                .no_hover(),
            at.x, at.y);
    }
}

/// Shows the keys of the rows in view; a key that another action has as well is red.
void show_keys()
{
    for (int cell = 0; cell < cells; ++cell) {
        const KeyPlace place = place_of(cell);
        gui.text_id[SLOT_CELL_0 + cell] = int(code_at(place));
        gui.colour[SLOT_CELL_0 + cell] =
            dupe_hotkey_check(place.action, place.column) != 0 ? warning_red : menu_scheme.scheme_background;
    }
}

/// Runs a dialog over the frozen screen and brings it back at the same place and scroll position.
template <class Dialog>
int over_frozen_screen(Dialog dialog)
{
    const int scrolled = gui.scroll_value[SLOT_LIST];
    freeze_menu();
    gui_clear_window();
    const int answer = dialog();
    clear_ghost();
    build_hotkey_menu();
    gui.scroll_value[SLOT_LIST] = scrolled;
    return answer;
}

void read_cells()
{
    for (int cell = 0; cell < cells; ++cell) {
        const int event = gui.event[SLOT_CELL_0 + cell].take();
        if (event == 0) continue;
        const KeyPlace place = place_of(cell);
        if (event == EVENT_RIGHT) {
            code_at(place) = 0;
            continue;
        }
        const int code = over_frozen_screen(remap_key_dialog);
        if (code != no_key_seen) code_at(place) = code;
    }
}

bool any_double()
{
    for (int action = 0; action < listed_actions; ++action)
        if (dupe_hotkey_check(action, 0) != 0 || dupe_hotkey_check(action, 1) != 0) return true;
    return false;
}

/// True when the keys may stay: no doubles, or the user wants them.
bool keys_accepted()
{
    if (!any_double()) return true;
    return over_frozen_screen([] { return confirm_dialog(TEXT_DUPLICATE_KEYS, TEXT_REALLY_WANT_THAT); }) != 0;
}

/// Runs the loop; true after OKAY.
bool choose_keys()
{
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .right_click = RightClick::LEAVES};
    for (show_keys(); run_pass(pass); show_keys()) {
        read_cells();
        if (gui.event[SLOT_DEFAULTS].take() != 0) set_default_hotkeys();
        if (gui.event[SLOT_CANCEL].take() != 0) return false;
        if (gui.event[SLOT_OKAY].take() != 0 && keys_accepted()) return true;
    }
    return false;
}

} // namespace

void hotkey_menu()
{
    const auto backup = hotkeys.hotkey_table;
    build_hotkey_menu();
    menus.status_message = TIP_REMAP;
    if (!choose_keys()) hotkeys.hotkey_table = backup;
    menus.status_message = TIP_NONE;
    close_screen();
}

} // namespace kelu
