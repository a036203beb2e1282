// SPDX-License-Identifier: MIT
// The confirmation dialog.
#include "screens/dialogs.h"

#include "gui/build.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include <utility>

namespace kelu {
namespace {

enum { WINDOW = 0, TITLE = 1, SLOT_OKAY = 2, SLOT_CANCEL = 3, FIRST_LINE = 4, SECOND_LINE = 5, DIALOG_SLOTS = 6 };

/// Of a question with answers of its own: two lines, then the answers.
enum { ANSWER_LINE = 2, FIRST_ANSWER = 4 };
constexpr int most_answers = 3;

constexpr int high_window = 120; ///< window of a dialog that leaves the open window's slots alone
constexpr int left = 60, top = 80, width = 200, height = 60;
constexpr int button_w = 59;
constexpr int first_line_colour = 37, second_line_colour = 40;

SlotRow shifted(SlotRow row, int first)
{
    row.slot += first;
    return row;
}

void build_lines(int first, int first_text, int second_text)
{
    const SlotRow line{FIRST_LINE, 0, 22, width, KIND_CAPTION, first_text};
    build_slot(shifted(line.inked(first_line_colour), first), left, top);
    if (second_text <= 0) return;
    const SlotRow second{SECOND_LINE, 0, 30, width, KIND_CAPTION, second_text};
    build_slot(shifted(second.inked(second_line_colour), first), left, top);
}

void build_buttons(int first, DialogButtons buttons)
{
    const bool single = buttons == DialogButtons::OKAY;
    const int okay_x = single ? (width - button_w) / 2 : 2;
    build_slot(shifted(push_row(SLOT_OKAY, okay_x, 50, button_w, TEXT_OKAY), first), left, top);
    if (!single) build_slot(shifted(push_row(SLOT_CANCEL, 140, 50, button_w, TEXT_CANCEL), first), left, top);
}

void build_ground(int first)
{
    build_slot(SlotRow{first, 0, 0, width, KIND_WINDOW}.high(height).filled(FILL_BACKGROUND), left, top);
    gui.slot_count[first] = DIALOG_SLOTS;
    build_slot(shifted(title_row(2, 2, width - 3, TEXT_LISTEN), first), left, top);
}

/// Builds the dialog from slot `first` on and runs it.
int run_dialog(int first, int first_text, int second_text, DialogButtons buttons)
{
    const int menu_before = menus.menu_id;
    menus.menu_id = MENU_DIALOG;
    build_ground(first);
    build_buttons(first, buttons);
    build_lines(first, first_text, second_text);
    bool accepted = false;
    while (!accepted && run_pass(passes::menu)) {
        accepted = gui.event[first + SLOT_OKAY].take() != 0;
        if (gui.event[first + SLOT_CANCEL].take() != 0) break;
    }
    menus.menu_id = menu_before;
    return accepted ? 1 : 0;
}

} // namespace

int confirm_dialog(int first_text, int second_text, DialogButtons buttons)
{
    return run_dialog(WINDOW, first_text, second_text, buttons);
}

int confirm_over_window(int first_text, int second_text, DialogButtons buttons)
{
    const int focus = std::exchange(gui_logic.gui_key_focus, -1);
    freeze_menu();
    menu_hide(WINDOW);
    const int answer = run_dialog(high_window, first_text, second_text, buttons);
    for (int slot = high_window; slot < high_window + DIALOG_SLOTS; ++slot)
        gui_reset_slot(slot);
    clear_ghost();
    menu_show(WINDOW);
    gui_logic.gui_key_focus = focus;
    return answer;
}

int choose_over_window(int first_text, std::span<const int> answers, int second_text)
{
    const int focus = std::exchange(gui_logic.gui_key_focus, -1);
    const int menu_before = menus.menu_id;
    freeze_menu();
    menu_hide(WINDOW);
    menus.menu_id = MENU_DIALOG;
    build_ground(high_window);
    gui.slot_count[high_window] = FIRST_ANSWER + most_answers;
    build_lines(high_window + ANSWER_LINE - FIRST_LINE, first_text, second_text);
    const int count = static_cast<int>(answers.size());
    for (int i = 0; i < count; ++i) {
        const int x = count == 1 ? (width - button_w) / 2 : 2 + i * (width - button_w - 3) / (count - 1);
        build_slot(push_row(high_window + FIRST_ANSWER + i, x, 50, button_w, answers[i]), left, top);
    }
    int answer = -1;
    while (answer < 0 && run_pass(passes::plain)) {
        for (int i = 0; i < count; ++i)
            if (gui.event[high_window + FIRST_ANSWER + i].take() != 0) answer = i;
    }
    if (answer < 0) answer = count - 1;
    for (int slot = high_window; slot < high_window + FIRST_ANSWER + most_answers; ++slot)
        gui_reset_slot(slot);
    clear_ghost();
    menu_show(WINDOW);
    menus.menu_id = menu_before;
    gui_logic.gui_key_focus = focus;
    return answer;
}

int ask(int first_text, int second_text, DialogButtons buttons)
{
    gui_clear_window();
    const int answer = confirm_dialog(first_text, second_text, buttons);
    build_draw_menu();
    return answer;
}

} // namespace kelu
