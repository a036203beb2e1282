// SPDX-License-Identifier: MIT
// One layout and one loop for both menus; what differs is in two rows.
#include "screens/choice_menu.h"

#include "draw/inks.h"
#include "gui/build.h"
#include "gui/logic.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "runtime/hotkeys.h"
#include "runtime/toolbox.h"
#include "screens/draw_menu.h"
#include "screens/option_widgets.h"
#include "tools/gradient_placing.h"
#include "tools/tools.h"
#include <array>

namespace kelu {
namespace {

enum {
    SLOT_TITLE = 1,
    SLOT_LIST = 2,
    SLOT_CHOICE_0 = 3,
    SLOT_OPTIONS = 9,
    SLOT_DESCRIPTION = 10,
    SLOT_OPTIONS_CAPTION = 11,
    SLOT_DESCRIPTION_CAPTION = 12,
    SLOT_POSITION = 14
};
constexpr int menu_slots = 30;
constexpr int choices = 6;

constexpr int rows_in_view = 9; ///< of the list

/// What differs between the two menus.
struct ChoiceMenu {
    int menu_id, action;             ///< its id, and the key that leaves it
    int title, options, description; ///< texts of the labels
    int first_name;                  ///< text of id 0; the others follow it
    int first_id, last_id;           ///< ids of the list's first and last row
    int toggle_action;               ///< of the option buttons
    Table<Shared<int>, 6>& slots;    ///< ids in the six slots
    Shared<int>& selected;           ///< slot
    OptionTable& table;
    const DrawChoice* (*row)(int id); ///< null for what is no tool or ink
};

const ChoiceMenu tool_choice{
    .menu_id = MENU_TOOL,
    .action = ACTION_TOOL_SELECT,
    .title = TEXT_BRUSHES,
    .options = TEXT_TOOL_OPTIONS,
    .description = TEXT_TOOL_DESCRIPTION,
    .first_name = first_tool_name,
    .first_id = TOOL_NONE + 1,
    .last_id = TOOL_COUNT - 1,
    .toggle_action = ACT_TOOL_OPTION,
    .slots = toolbox.tool_slots,
    .selected = toolbox.tool_slot,
    .table = toolbox.tool_table,
    .row = [](int id) -> const DrawChoice* { return find_tool(id); },
};
const ChoiceMenu ink_choice{
    .menu_id = MENU_INK,
    .action = ACTION_INK_SELECT,
    .title = TEXT_INK,
    .options = TEXT_INK_OPTIONS_CAPTION,
    .description = TEXT_INK_DESCRIPTION,
    .first_name = first_ink_name,
    .first_id = 0,
    .last_id = INK_COUNT - 1,
    .toggle_action = ACT_INK_OPTION,
    .slots = toolbox.ink_slots,
    .selected = toolbox.ink_slot,
    .table = toolbox.ink_table,
    .row = [](int id) -> const DrawChoice* { return find_ink(id); },
};

Shared<int>& id_of(const ChoiceMenu& menu, int choice) { return menu.slots[choice]; }

/// Shows what a slot holds: its button's text, its description and its options.
void show_choice(const ChoiceMenu& menu, int choice)
{
    const DrawChoice* row = menu.row(id_of(menu, choice));
    if (!row) return;
    gui.text_id[SLOT_CHOICE_0 + choice] = row->name;
    gui.text_id[SLOT_DESCRIPTION] = row->description;
    build_option_widgets(*row, menu.table, menu.toggle_action, gui.x[0], gui.y[0]);
}

void light_choice(const ChoiceMenu& menu, int choice)
{
    for (int i = 0; i < choices; ++i)
        gui.kind[SLOT_CHOICE_0 + i] = i == choice ? KIND_BUTTON_LIT : KIND_BUTTON;
    menu.selected = choice;
    show_choice(menu, choice);
}

void build_choice_menu(const ChoiceMenu& menu)
{
    const int items = menu.last_id - menu.first_id + 1;
    const ListRows list{.first_text = menu.first_name + menu.first_id,
                        .items = items,
                        .rows = rows_in_view,
                        .pitch = 7,
                        .font = 5,
                        .width = 59};
    const std::array rows{
        title_row(2, 2, 72, menu.title),
        SlotRow{SLOT_LIST, 2, 12, 72, KIND_LIST}.high(65).with(list).with(
            ScrollBar{.steps = items - rows_in_view + 1, .wheel = 2, .dx = 62}),
        SlotRow{SLOT_OPTIONS, 75, 22, 119, KIND_PANEL}.high(55),
        SlotRow{SLOT_DESCRIPTION, 195, 2, 123, KIND_TOOL_TEXT}.high(75),
        caption_row(SLOT_OPTIONS_CAPTION, 77, 24, 115, menu.options),
        caption_row(SLOT_DESCRIPTION_CAPTION, 197, 4, 119, menu.description),
    };
    const Origin at = build_screen({.menu_id = menu.menu_id,
                                    .row = WINDOW_TOOL_AND_INK,
                                    .x = 0,
                                    .y = 161,
                                    .w = 319,
                                    .h = 78,
                                    .slot_count = menu_slots,
                                    .slots = rows});
    for (int i = 0; i < choices; ++i) {
        build_slot({SLOT_CHOICE_0 + i, 75 + 40 * (i % 3), 2 + 10 * (i / 3), standard_button_w, KIND_BUTTON,
                    menu.first_name + id_of(menu, i), ACT_CLICK, ACT_NONE, TIP_EDIT_TOOL_SLOT},
                   at.x, at.y);
    }
}

/// A press on a row of the list puts that tool or ink into the edited slot.
void read_list(const ChoiceMenu& menu, int choice)
{
    const int row = left_down() ? list_row_under_pointer(SLOT_LIST) : -1;
    const int id = gui.scroll_value[SLOT_LIST] + row + menu.first_id;
    if (row < 0 || id > menu.last_id) return;
    id_of(menu, choice) = id;
    light_choice(menu, choice);
    wait_left_release();
}

/// The gradient whose position is to be placed, -1 when the menu was left in another way.
int run_choice_menu(const ChoiceMenu& menu, int choice)
{
    build_choice_menu(menu);
    light_choice(menu, choice);
    wait_for_release(menu.action);
    const Pass pass{.hotkeys = IN_ANY_MENU, .right_click = RightClick::LEAVES, .leave_key = menu.action};
    int gradient = -1;
    while (gradient < 0 && run_pass(pass)) {
        read_list(menu, choice);
        for (int i = 0; i < choices; ++i) {
            if (gui.event[SLOT_CHOICE_0 + i].take() == 0) continue;
            choice = i;
            light_choice(menu, choice);
        }
        if (gui.event[SLOT_POSITION].take() > 0 && gui.text_id[SLOT_POSITION] == TEXT_POSITION)
            gradient = id_of(menu, choice);
    }
    menus.menu_id = MENU_DRAW;
    return gradient;
}

} // namespace

void brush_tool_menu(int slot) { run_choice_menu(tool_choice, slot); }

void ink_menu(int slot)
{
    const int gradient = run_choice_menu(ink_choice, slot);
    if (gradient < 0) return;
    build_draw_menu();
    reposition_gradient(gradient);
}

} // namespace kelu
