// The confirmation dialog.
#include "screens/dialogs.h"

#include "gui/build.h"
#include "loop/actions.h"
#include "loop/frame.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "screens/draw_menu.h"

namespace kelu {
namespace {

enum { WINDOW = 0, TITLE = 1, SLOT_OKAY = 2, SLOT_CANCEL = 3, FIRST_LINE = 4, SECOND_LINE = 5, DIALOG_SLOTS = 6 };

constexpr int high_window = 120; ///< first slot of a dialog that leaves the open menu's slots alone
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

} // namespace

int confirm_dialog(int first_text, int second_text, DialogSlots slots, DialogButtons buttons)
{
    const int first = slots == DialogSlots::HIGH ? high_window : WINDOW;
    const int menu_before = menus.menu_id;
    menus.menu_id = MENU_DIALOG;
    build_ground(first);
    build_buttons(first, buttons);
    build_lines(first, first_text, second_text);
    int answer = -1;
    while (answer < 0) {
        run_frame(0);
        hotkey_dispatch(1);
        if (gui.event[first + SLOT_OKAY].take() != 0) answer = 1;
        if (gui.event[first + SLOT_CANCEL].take() != 0) answer = 0;
    }
    menus.menu_id = menu_before;
    return answer;
}

int ask(int first_text, int second_text, DialogButtons buttons)
{
    gui_clear_window();
    const int answer = confirm_dialog(first_text, second_text, DialogSlots::LOW, buttons);
    gui_clear_window();
    build_draw_menu();
    return answer;
}

} // namespace kelu
