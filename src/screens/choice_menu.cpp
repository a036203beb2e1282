// One layout and one loop for both menus; what differs stands in two rows.
#include "screens/choice_menu.h"

#include "gui/build.h"
#include "loop/actions.h"
#include "loop/frame.h"
#include "loop/home_strip.h"
#include "loop/tool_loop.h"
#include "loop/waits.h"
#include "runtime/hotkeys.h"
#include "runtime/toolbox.h"
#include "screens/draw_menu.h"
#include "screens/option_widgets.h"
#include "tools/gradient_placing.h"
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

/// What tells the two menus apart.
struct ChoiceMenu {
    int menu_id, action;             ///< its id, and the key that leaves it
    int title, options, description; ///< texts of the labels
    int first_name;                  ///< text row of id 0
    int first_id;                    ///< id of the list's first row
    int list_items, list_positions;  ///< rows of the list, and positions of its bar
    int first_description;           ///< description row of id 0
    int toggle_action;
    std::array<Shared<int>, 6>& ids; ///< of the six slots
    Shared<int>& selected;
    OptionTable& table;
    std::span<const OptionWidget> (*widgets)(int id);
};

const ChoiceMenu tool_choice{MENU_TOOL,
                             ACTION_TOOL_SELECT,
                             TEXT_BRUSHES,
                             TEXT_TOOL_OPTIONS,
                             TEXT_TOOL_DESCRIPTION,
                             first_tool_name,
                             1,
                             22,
                             10,
                             0,
                             ACT_TOOL_OPTION,
                             toolbox.tool_slots,
                             toolbox.tool_slot,
                             toolbox.tool_table,
                             tool_widgets};
const ChoiceMenu ink_choice{MENU_INK,
                            ACTION_INK_SELECT,
                            TEXT_INK,
                            TEXT_INK_OPTIONS_CAPTION,
                            TEXT_INK_DESCRIPTION,
                            first_ink_name,
                            0,
                            26,
                            17,
                            ink_description_row,
                            ACT_INK_OPTION,
                            toolbox.ink_slots,
                            toolbox.ink_slot,
                            toolbox.ink_table,
                            ink_widgets};

Shared<int>& id_of(const ChoiceMenu& menu, int choice) { return menu.ids[static_cast<std::size_t>(choice)]; }

/// Shows what a slot holds: its button's text, its description and its options.
void show_choice(const ChoiceMenu& menu, int choice)
{
    const int id = id_of(menu, choice);
    gui.text_id[SLOT_CHOICE_0 + choice] = menu.first_name + id;
    gui.text_id[SLOT_DESCRIPTION] = menu.first_description + id;
    build_option_widgets(menu.widgets(id), menu.table, id, menu.toggle_action, gui.x[0], gui.y[0]);
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
    const ListRows list{.first_text = menu.first_name + menu.first_id,
                        .items = menu.list_items,
                        .rows = 9,
                        .pitch = 7,
                        .font = 5,
                        .width = 59};
    const std::array rows{
        title_row(2, 2, 72, menu.title),
        SlotRow{SLOT_LIST, 2, 12, 72, KIND_LIST}.high(65).with(list).with(
            ScrollBar{.steps = menu.list_positions, .wheel = 2, .dx = 62}),
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
    if (!left_down() || gui.hover_row[SLOT_LIST] < 0) return;
    const int id = gui.scroll_value[SLOT_LIST] + gui.hover_row[SLOT_LIST] + menu.first_id;
    if (menu.widgets == tool_widgets ? id >= TOOL_COUNT : id >= INK_COUNT) return;
    id_of(menu, choice) = id;
    light_choice(menu, choice);
    wait_left_release();
}

bool wants_to_leave(const ChoiceMenu& menu)
{
    if (right_press_on_bare_frame()) {
        wait_right_release();
        return true;
    }
    if (!hotkey_test(menu.action)) return false;
    wait_for_release(menu.action);
    return true;
}

/// The gradient whose position is to be placed, -1 when the menu was left in another way.
int run_choice_menu(const ChoiceMenu& menu, int choice)
{
    build_choice_menu(menu);
    light_choice(menu, choice);
    wait_for_release(menu.action);
    int gradient = -1;
    while (gradient < 0 && !wants_to_leave(menu)) {
        run_frame(0);
        hotkey_dispatch(1);
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
    gui_clear_window();
    build_draw_menu();
    reposition_gradient(gradient);
}

} // namespace kelu
