// SPDX-License-Identifier: MIT
// The dispatcher of the actions.
#include "loop/actions.h"

#include "base/log.h"
#include "gui/kinds.h"
#include "gui/slots.h"
#include "loop/inspector.h"
#include "loop/measurement.h"
#include "loop/pass.h"
#include "runtime/hotkeys.h"
#include "runtime/store.h"

namespace kelu {
namespace {

bool field_has_focus()
{
    const int focus = gui_logic.gui_key_focus;
    return focus >= 0 && focus < gui_slots && gui.kind[focus] == KIND_TEXT_FIELD;
}

bool answers(const ActionRow& row, int context, bool focused)
{
    if ((row.contexts >> context & 1) == 0 || !hotkey_test(row.action)) return false;
    if (focused && (row.flags & IN_FIELD) == 0) return false;
    if ((row.flags & TWO_FRAMES) != 0 && store.frame_count < 2) return false;
    return (row.flags & CHANGES_FRAME) == 0 || action_state.frame_locked == 0;
}

} // namespace

void hotkey_dispatch(int context)
{
    const bool on_timer = (ON_TIMER >> context & 1) != 0;
    if (on_timer && action_state.hotkey_dispatch_running != 0) return;
    if (!on_timer) action_state.hotkey_dispatch_running = 1;
    const bool focused = field_has_focus();
    for (const ActionRow& row : action_rows) {
        if (!answers(row, context, focused) || !row.run) continue;
        row.run();
        if ((row.flags & ONCE) != 0 && !on_timer) wait_for_release(row.action);
    }
    if (!on_timer) action_state.hotkey_dispatch_running = 0;
}

void wait_for_release(int action)
{
    while (hotkey_test(action) && run_pass(passes::plain)) {}
}

int dupe_hotkey_check(int major, int minor)
{
    if (major < 0 || major > ACTION_LIST_END) {
        log_line("[ ERROR ] : Major OOB in call to dupe_hotkey_check! Major = %d", major);
        return 0;
    }
    if (minor < 0 || minor > 1) {
        log_line("[ ERROR ] : Minor OOB in call to dupe_hotkey_check! Minor = %d", minor);
        return 0;
    }
    const auto keys_of = [](int action) -> const HotkeyRow& { return hotkeys.hotkey_table[action]; };
    const int code = minor == 0 ? keys_of(major).primary : keys_of(major).alternate;
    if (code == 0) return 0;
    for (int action = 0; action <= ACTION_LIST_END; ++action) {
        if (action != major && (keys_of(action).primary == code || keys_of(action).alternate == code)) return 1;
    }
    return 0;
}

} // namespace kelu
