// SPDX-License-Identifier: MIT
// The workspace menu.
#include "screens/workspace_menu.h"

#include "gui/build.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "runtime/store.h"
#include "screens/dialogs.h"
#include "screens/dispatch.h"
#include "screens/draw_menu.h"
#include "screens/file_browser.h"
#include "workspace/blank_workspace.h"
#include <array>
#include <string>

namespace kelu {
namespace {

enum { SLOT_FRAMES = 5, SLOT_TITLE, SLOT_NOTES, SLOT_SAVE, SLOT_LOAD, SLOT_NEW, SLOT_RETURN, menu_slots };

constexpr int field_limit = 120; ///< characters that the fields take

constexpr std::array layout_rows{
    title_row(2, 2, 197, TEXT_WORKSPACE_MANAGEMENT),
    SlotRow{2, 2, 12, 45, KIND_BUTTON, TEXT_FRAMES},
    SlotRow{3, 2, 22, 45, KIND_BUTTON, TEXT_TITLE},
    SlotRow{4, 2, 32, 45, KIND_BUTTON, TEXT_NOTES},
    SlotRow{SLOT_FRAMES, 48, 12, 151, KIND_FRAME_COUNT},
    field_row(SLOT_TITLE, 48, 22, 151, 24, field_limit),
    field_row(SLOT_NOTES, 48, 32, 151, 24, field_limit),
    push_row(SLOT_SAVE, 2, 42, 45, TEXT_SAVE, TIP_SAVE_WORKSPACE),
    push_row(SLOT_LOAD, 50, 42, 45, TEXT_LOAD, TIP_LOAD_WORKSPACE),
    push_row(SLOT_NEW, 98, 42, 45, TEXT_NEW, TIP_NEW_WORKSPACE),
    push_row(SLOT_RETURN, 154, 42, 45, TEXT_RETURN, TIP_RETURN),
};
constexpr MenuLayout layout{.menu_id = MENU_WORKSPACE,
                            .row = WINDOW_WORKSPACE,
                            .x = 62,
                            .y = 70,
                            .w = 200,
                            .h = 52,
                            .slot_count = menu_slots,
                            .slots = layout_rows};

/// What the field shows becomes the text. One that hasn't been edited keeps what is longer than the field.
void take_text(int slot, std::string& text)
{
    const std::string shown = field_text_of(slot).data();
    if (shown != text.substr(0, field_limit)) text = shown;
}

void clear_after_question()
{
    const int answer = confirm_dialog(TEXT_CLEAR_WORKSPACE, TEXT_CANNOT_BE_UNDONE);
    if (answer != 0) clear_workspace();
}

/// What follows the menu once its slots are gone.
void run_over_menu(void (*activity)())
{
    gui_clear_window();
    clear_ghost();
    activity();
}

/// Does what a button asks for; true when the menu is to close.
bool read_buttons()
{
    if (gui.event[SLOT_SAVE].take() != 0)
        run_over_menu([] { file_browser(BROWSER_SAVE, BROWSE_WORKSPACE); });
    else if (gui.event[SLOT_LOAD].take() != 0)
        run_over_menu([] { file_browser(BROWSER_LOAD, BROWSE_WORKSPACE); });
    else if (gui.event[SLOT_NEW].take() != 0)
        run_over_menu(clear_after_question);
    else
        return gui.event[SLOT_RETURN].take() != 0;
    return true;
}

} // namespace

void workspace_menu()
{
    build_screen(layout);
    set_field_text(SLOT_TITLE, store.workspace_title.c_str());
    set_field_text(SLOT_NOTES, store.workspace_notes.c_str());
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .quick_pan = true, .right_click = RightClick::HIDES};
    while (run_pass(pass)) {
        take_text(SLOT_TITLE, store.workspace_title);
        take_text(SLOT_NOTES, store.workspace_notes);
        if (read_buttons()) break;
    }
    build_draw_menu();
}

} // namespace kelu
