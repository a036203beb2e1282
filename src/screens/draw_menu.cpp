// SPDX-License-Identifier: MIT
// The loop that reads the strip's events.
#include "screens/draw_menu.h"

#include "base/run_state.h"
#include "draw/operation.h"
#include "draw/undo.h"
#include "gui/build.h"
#include "gui/scheme.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "screens/activity.h"
#include "screens/choice_menu.h"
#include "screens/commands.h"
#include "screens/failure_dialog.h"
#include "screens/favorites_menu.h"
#include "screens/opened_files.h"
#include "screens/screen_pick.h"
#include "screens/tip_menu.h"
#include "tools/tools.h"
#include <array>

namespace kelu {
namespace {

void draw_on_press()
{
    // The press can be newer than the last logic pass, which knows where the pointer was then. One that a slot has
    // taken paints nothing, wherever the pointer goes with it.
    if (!left_down() || slot_under_pointer() >= 0 || gui_logic.gui_capture != 0) return;
    update_mouse_position();
    tool_dispatch();
    wait_left_release();
    clear_to_color(screen_state.tool_overlay, mask_magenta);
}

/// Moves the light to the clicked button of a block.
void select_choice(Shared<int>& selected, int first_slot, int clicked)
{
    selected = clicked;
    for (int i = 0; i < 6; ++i)
        gui.kind[first_slot + i] = i == clicked ? KIND_BUTTON_LIT : KIND_BUTTON;
}

void read_columns()
{
    if (gui.event[SLOT_FRAME].take() != 0) activity_menu(ActivityColumn::FRAME, SLOT_FRAME);
    const int undo_event = gui.event[SLOT_UNDO].take();
    if (undo_event > 0) undo_step();
    if (undo_event == EVENT_RIGHT) redo_step();
    if (gui.event[SLOT_PIC].take() != 0) activity_menu(ActivityColumn::PIC, SLOT_PIC);
    if (gui.event[SLOT_CEL].take() != 0) activity_menu(ActivityColumn::CEL, SLOT_CEL);
    if (gui.event[SLOT_USER].take() != 0) activity_menu(ActivityColumn::USER, SLOT_USER);
}

void read_colors()
{
    const int mask = gui.event[SLOT_MASK].take();
    if (mask > 0) toolbox.brush_color = int(toolbox.mask_color);
    if (mask == EVENT_RIGHT) choose_mask_color();
    if (gui.event[SLOT_BRUSH].take() == EVENT_RIGHT) choose_brush_color();
    if (gui.event[SLOT_TIP].take() != 0) choose_tip();
    const int band = gui.event[SLOT_SPECTRUM].take();
    if (band > 0) toolbox.brush_color = grab_screen_color();
    if (band == EVENT_RIGHT) pick_spectrum(SLOT_SPECTRUM);
    for (int slot = SLOT_FAVORITE_0; slot <= SLOT_FAVORITE_9; ++slot) {
        const int event = gui.event[slot].take();
        if (event > 0) toolbox.brush_color = int(gui.colour[slot]);
        if (event == EVENT_RIGHT) favorites_menu();
        gui.kind[slot] = KIND_COLOR_CELL;
    }
}

/// A left click on a button of a block selects it, a right click opens the menu of its slot.
void read_choice(Shared<int>& selected, int first_slot, int choice, void (*menu)(int slot))
{
    const int event = gui.event[first_slot + choice].take();
    if (event > 0) select_choice(selected, first_slot, choice);
    if (event != EVENT_RIGHT) return;
    menu(choice);
    build_draw_menu();
}

void read_choices()
{
    for (int i = 0; i < 6; ++i) {
        read_choice(toolbox.tool_slot, SLOT_TOOL_0, i, brush_tool_menu);
        read_choice(toolbox.ink_slot, SLOT_INK_0, i, ink_menu);
    }
}

} // namespace

void draw_menu()
{
    build_draw_menu();
    constexpr Pass pass{.hotkeys = IN_DRAW_MENU | IN_ANY_MENU, .right_click = RightClick::HIDES, .is_home = true};
    while (run_pass(pass)) {
        tell_of_failures();
        draw_on_press();
        read_columns();
        read_colors();
        read_choices();
        open_waiting_files();
        stroke_position = {};
    }
}

} // namespace kelu
