// SPDX-License-Identifier: MIT
// Buttons and their functions.
#include "screens/mouse_menu.h"

#include "base/run_state.h"
#include "gui/build.h"
#include "loop/freeze.h"
#include "loop/pass.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "screens/dialogs.h"
#include "screens/list_popup.h"
#include <algorithm>
#include <array>

namespace kelu {
namespace {

enum {
    SLOT_BUTTON_1 = 3,
    SLOT_NAME_1 = 8,
    SLOT_OKAY = 13,
    SLOT_DEFAULTS = 14,
    SLOT_CANCEL = 15,
    SLOT_FUNCTION_1 = 16,
    menu_slots = 21
};

constexpr int buttons = 5;
constexpr int accept_function = 1, cancel_function = 2; ///< functions that some button must have
constexpr ListPopup function_list{.first_text = first_mouse_function, .items = 28, .positions = 20, .w = 112};

constexpr std::array layout_rows{
    title_row(2, 2, 41, TEXT_MOUSE),
    push_row(SLOT_OKAY, 2, 64, 64, TEXT_OKAY),
    push_row(SLOT_DEFAULTS, 128, 64, 64, TEXT_DEFAULTS),
    push_row(SLOT_CANCEL, 254, 64, 64, TEXT_CANCEL),
    SlotRow{SLOT_FUNCTION_1, 84, 12, 234, KIND_PLAIN_LABEL, TEXT_CANT_REMAP},
};
constexpr MenuLayout layout{.menu_id = MENU_MOUSE,
                            .row = WINDOW_MOUSE,
                            .x = 0,
                            .y = 165,
                            .w = 319,
                            .h = 74,
                            .slot_count = menu_slots,
                            .slots = layout_rows};

Shared<int>& function_of(int button) { return hotkeys.mouse_button_map[button]; }

void build_mouse_menu()
{
    const Origin at = build_screen(layout);
    for (int i = 0; i < buttons; ++i) {
        build_slot({SLOT_BUTTON_1 + i, 44 + 55 * i, 2, 54, KIND_BUTTON, TEXT_BUTTON_1 + i, ACT_NONE, ACT_NONE,
                    TIP_BUTTON_1 + i},
                   at.x, at.y);
        build_slot({SLOT_NAME_1 + i, 2, 12 + 10 * i, 81, KIND_BUTTON, TEXT_B1 + i}, at.x, at.y);
    }
    for (int i = 1; i < buttons; ++i) {
        build_slot({SLOT_FUNCTION_1 + i, 84, 12 + 10 * i, 234, KIND_MENU_ENTRY, first_mouse_function + function_of(i),
                    ACT_CLICK},
                   at.x, at.y);
    }
}

/// A button's label is lit while the button is down.
void show_buttons()
{
    poll_mouse_buttons();
    const std::array<bool, buttons> down{pointer.mouse_left != 0, pointer.mouse_right != 0, pointer.mouse_middle != 0,
                                         pointer.mouse_button_4 != 0, pointer.mouse_button_5 != 0};
    for (int i = 0; i < buttons; ++i)
        gui.kind[SLOT_BUTTON_1 + i] = down[i] ? KIND_BUTTON_LIT : KIND_BUTTON;
}

void read_functions()
{
    for (int i = 1; i < buttons; ++i) {
        const int slot = SLOT_FUNCTION_1 + i;
        if (gui.event[slot].take() == 0) continue;
        const int chosen = choose_from_list(function_list, gui.x[slot] + 36, gui.y[slot]);
        if (chosen != no_choice) function_of(i) = chosen;
        build_mouse_menu();
    }
}

bool accept_and_cancel_mapped()
{
    const auto mapped = [](int function) {
        return std::ranges::any_of(hotkeys.mouse_button_map, [function](int held) { return held == function; });
    };
    return mapped(accept_function) && mapped(cancel_function);
}

/// True when the buttons may stay as they are; otherwise says what is missing.
bool buttons_accepted()
{
    if (accept_and_cancel_mapped()) return true;
    freeze_menu();
    gui_clear_window();
    confirm_dialog(TEXT_ACCEPT_AND_CANCEL, TEXT_MUST_BE_MAPPED, DialogButtons::OKAY);
    clear_ghost();
    build_mouse_menu();
    return false;
}

void set_default_buttons()
{
    for (int i = 0; i < buttons; ++i)
        function_of(i) = i + 1;
    build_mouse_menu();
    flash_status_message(TIP_DEFAULTS_RESTORED);
}

/// Runs the loop; true after OKAY.
bool choose_functions()
{
    for (show_buttons(); run_pass(passes::plain); show_buttons()) {
        read_functions();
        if (gui.event[SLOT_DEFAULTS].take() != 0) set_default_buttons();
        if (gui.event[SLOT_CANCEL].take() != 0) return false;
        if (gui.event[SLOT_OKAY].take() != 0 && buttons_accepted()) return true;
    }
    return false;
}

} // namespace

void mouse_button_menu()
{
    const auto backup = hotkeys.mouse_button_map;
    build_mouse_menu();
    if (!choose_functions()) hotkeys.mouse_button_map = backup;
    close_screen();
}

} // namespace kelu
