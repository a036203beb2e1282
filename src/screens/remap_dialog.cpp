// SPDX-License-Identifier: MIT
// Watching the keyboard for a new key.
#include "screens/remap_dialog.h"

#include "gui/build.h"
#include "gui/key_labels.h"
#include "loop/actions.h"
#include "loop/pass.h"
#include "platform/input_events.h"
#include "runtime/hotkeys.h"
#include <allegro.h>
#include <array>
#include <string>

namespace kelu {
namespace {

enum { SLOT_OKAY = 2, SLOT_CANCEL = 3, SLOT_KEY = 4, dialog_slots = 6 };

constexpr int left = 70, top = 80, width = 180, height = 60;
constexpr int key_colour = 37;

constexpr std::array dialog_rows{
    title_row(2, 2, 177, TEXT_PRESS_A_KEY),
    push_row(SLOT_OKAY, 2, 50, 59, TEXT_OKAY),
    push_row(SLOT_CANCEL, 120, 50, 59, TEXT_CANCEL),
    SlotRow{SLOT_KEY, 0, 22, width, KIND_PTR_LABEL}.inked(key_colour),
};
constexpr MenuLayout layout{
    .menu_id = MENU_DIALOG, .w = width, .h = height, .slot_count = dialog_slots, .slots = dialog_rows};

/// The key that is down, the last one in the order of scancodes, with its modifiers; `no_key_seen` for none. Pause
/// stays down until it is pressed again and can be no key of an action.
int key_down_now()
{
    const int modifiers = modifiers_held();
    int code = no_key_seen;
    for (int scancode = 1; scancode <= last_key_code; ++scancode)
        if ((::key[scancode] != 0 || platform::key_pressed_lately(scancode)) && scancode != KEY_PAUSE)
            code = scancode | modifiers;
    return code;
}

} // namespace

int remap_key_dialog()
{
    const HotkeysOff no_pans;
    build_screen_at(layout, left, top);
    std::string label = key_label(key_awaiting);
    gui.ptr[SLOT_KEY] = label.c_str();
    int code = no_key_seen;
    bool accepted = false;
    while (!accepted && run_pass({.reads_keys = true})) {
        const int seen = key_down_now();
        if (seen != no_key_seen && seen != code) {
            code = seen;
            label = spelt_key_label(code);
            gui.ptr[SLOT_KEY] = label.c_str();
        }
        if (gui.event[SLOT_CANCEL].take() != 0) break;
        accepted = gui.event[SLOT_OKAY].take() != 0;
    }
    gui_clear_window();
    menus.menu_id = MENU_HOTKEYS;
    return accepted ? code : no_key_seen;
}

} // namespace kelu
