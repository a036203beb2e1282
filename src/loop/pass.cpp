// SPDX-License-Identifier: MIT
// The pass, and the waits that are made of passes.
#include "loop/pass.h"

#include "base/run_state.h"
#include "gui/menus.h"
#include "gui/slots.h"
#include "gui/strings.h"
#include "loop/frame.h"
#include "loop/home_strip.h"
#include "loop/quick_pan.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include <algorithm>
#include <array>
#include <utility>

namespace kelu {
namespace {

constexpr int hotkey_contexts = 4;

/// The right button as the last pass saw it: a press that begins on a slot stays the slot's, wherever it is dragged.
/// Main thread.
bool right_was_down = false;

bool must_end(const Pass& pass) { return ending() || (pass.is_home && run_state.exit_requested != 0); }

void run_hotkeys(uint8_t contexts)
{
    for (int context = 0; context < hotkey_contexts; ++context)
        if ((contexts >> context & 1) != 0) hotkey_dispatch(context);
}

/// True in the pass that first sees the right button down, over no slot.
bool right_pressed()
{
    const bool down = right_down();
    return !std::exchange(right_was_down, down) && down && slot_under_pointer() < 0;
}

void flip_window()
{
    if (menus.menu_id == MENU_DRAW) {
        flip_draw_menu();
    } else {
        menu_toggle_hidden(0);
    }
}

/// True in the frame that sees Escape go down, where it is no key of an action that answers.
bool escape_pressed(const Pass& pass)
{
    if (escape_frames != 1 || pass.reads_keys) return false;
    return std::ranges::none_of(action_rows, [&pass](const ActionRow& row) {
        return (row.contexts & pass.hotkeys) != 0 && answers_escape(row.action);
    });
}

/// The button by which the user leaves the open window, of several windows the one on top; -1 none.
int leaving_button()
{
    constexpr std::array ways{int(TEXT_CANCEL), int(TEXT_EXIT), int(TEXT_BACK), int(TEXT_RETURN)};
    int okay = -1;
    for (int slot = gui_slots - 1; slot >= 0; --slot) {
        if (!slot_live(slot) || gui.left_action[slot] != ACT_CLICK) continue;
        const int text = gui.text_id[slot];
        if (std::ranges::find(ways, text) != ways.end()) return slot;
        if (text == TEXT_OKAY && okay < 0) okay = slot;
    }
    return okay;
}

/// Escape clicks the button that leaves. True when there is none and the loop ends by it.
bool escape(const Pass& pass)
{
    while (escape_down() && run_pass(passes::plain)) {}
    const int button = leaving_button();
    if (button >= 0) gui.event[button] = 1;
    return button < 0 && pass.right_click == RightClick::LEAVES;
}

/// True when the user has left the loop by its key or a right click.
bool user_leaves(const Pass& pass)
{
    if (right_pressed() && pass.right_click != RightClick::IS_THE_LOOPS) {
        wait_right_release();
        if (pass.right_click == RightClick::LEAVES) return true;
        flip_window();
    }
    if (pass.leave_key == Pass::no_action || !hotkey_test(pass.leave_key)) return false;
    wait_for_release(pass.leave_key);
    return true;
}

} // namespace

bool ending() { return run_state.end_now != 0; }

bool run_pass(const Pass& pass)
{
    if (must_end(pass)) return false;
    run_frame(0);
    const bool escapes = escape_pressed(pass); // before an action sees the key and runs a loop of its own
    run_hotkeys(pass.hotkeys);
    if (pass.quick_pan && hotkey_test(ACTION_QUICK_PAN)) quick_pan();
    if (user_leaves(pass) || (escapes && escape(pass))) return false;
    return !must_end(pass);
}

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
    while (left_down() && run_pass(passes::plain)) {}
}

void wait_right_release()
{
    while (right_down() && run_pass(passes::plain)) {}
}

} // namespace kelu
