// SPDX-License-Identifier: MIT
// The failure panel.
#include "screens/failure_panel.h"

#include "gui/build.h"
#include "loop/actions.h"
#include "loop/pass.h"

namespace kelu {
namespace {

enum { SLOT_PANEL = 124, SLOT_FIRST_LINE, SLOT_SECOND_LINE };

constexpr int left = 30, top = 80, width = 260, height = 30;
constexpr int line_colour = 34;

void build_failure_panel(int code)
{
    const SlotRow panel{SLOT_PANEL, 0, 0, width, KIND_FAILURE_PANEL};
    const SlotRow first{SLOT_FIRST_LINE, 0, 4, width, KIND_CAPTION, TEXT_SOFTWARE_FAILURE};
    const SlotRow second{SLOT_SECOND_LINE, 0, 16, width, KIND_CAPTION, TEXT_SOFTWARE_FAILURE + code};
    build_slot(panel.high(height).filled(FILL_BLACK), left, top);
    gui.reserved[SLOT_PANEL] = 1;
    gui.slot_count[SLOT_PANEL] = 3;
    build_slot(first.inked(line_colour), left, top);
    build_slot(second.inked(line_colour), left, top);
}

} // namespace

void show_failure(int code)
{
    build_failure_panel(code);
    // What was to be read may be half there, and no key may change frames before it is whole.
    ++action_state.frame_locked;
    // Escape would mean a button of the screen below.
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .reads_keys = true};
    while (run_pass(pass) && !left_down()) {}
    wait_left_release();
    --action_state.frame_locked;
    for (const int slot : {SLOT_PANEL, SLOT_FIRST_LINE, SLOT_SECOND_LINE})
        gui_reset_slot(slot);
    gui_clear_window();
}

} // namespace kelu
