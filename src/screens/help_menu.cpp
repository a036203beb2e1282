// SPDX-License-Identifier: MIT
// Topics on the left, the page of the chosen one on the right.
#include "screens/help_menu.h"

#include "gui/build.h"
#include "gui/logic.h"
#include "loop/actions.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "screens/draw_menu.h"
#include <array>

namespace kelu {
namespace {

enum { SLOT_TOPICS = 2, SLOT_PAGE, SLOT_EXIT, help_slots };
enum { SLOT_CREDITS = 2, SLOT_OKAY, about_slots };

constexpr int topics = 51;
constexpr int unknown_lines = -1; ///< the page's painter counts its lines

constexpr std::array help_rows{
    title_row(2, 2, 312, TEXT_HELP_TITLE),
    SlotRow{SLOT_TOPICS, 2, 12, 97, KIND_LIST}
        .high(212)
        .with(ListRows{.first_text = first_help_topic,
                       .items = topics,
                       .rows = 21,
                       .pitch = 10,
                       .font = 5,
                       .text_y = 1,
                       .width = 84})
        .with(ScrollBar{.steps = 31, .wheel = 2, .dx = 87}),
    SlotRow{SLOT_PAGE, 100, 12, 214, KIND_HELP_PAGE}.high(222).with(ScrollBar{.steps = 1, .wheel = 2, .dx = 204}),
    push_row(SLOT_EXIT, 2, 225, 97, TEXT_EXIT),
};
constexpr MenuLayout help_layout{.menu_id = MENU_DIALOG,
                                 .row = WINDOW_NONE,
                                 .x = 2,
                                 .y = 2,
                                 .w = 315,
                                 .h = 235,
                                 .slot_count = help_slots,
                                 .slots = help_rows};

constexpr std::array about_rows{
    title_row(2, 2, 177, TEXT_ABOUT_TITLE),
    SlotRow{SLOT_CREDITS, 0, 0, 180, KIND_ABOUT, TEXT_NONE, ACT_NONE, ACT_NONE, TIP_DRAG_MENU}.high(160).no_hover(),
    push_row(SLOT_OKAY, 60, 148, 59, TEXT_OKAY),
};
constexpr MenuLayout about_layout{.menu_id = MENU_ABOUT,
                                  .row = WINDOW_ABOUT,
                                  .x = 100,
                                  .y = 50,
                                  .w = 180,
                                  .h = 160,
                                  .slot_count = about_slots,
                                  .slots = about_rows};

/// Page `number` from its top; the bar comes back when the page needs one.
void show_page(int number)
{
    gui.scroll_on[SLOT_PAGE] = 0;
    gui.scroll_value[SLOT_PAGE] = 0;
    gui.text_id[SLOT_PAGE] = number;
    gui.params[SLOT_TOPICS][0] = number; // marked in the list; the first page is no topic's
    gui.items[SLOT_PAGE][0] = unknown_lines;
}

void read_topics()
{
    const int row = left_down() ? list_row_under_pointer(SLOT_TOPICS) : -1;
    if (row < 0) return;
    const int number = gui.scroll_value[SLOT_TOPICS] + row + 1;
    if (number != gui.text_id[SLOT_PAGE]) show_page(number);
    wait_left_release();
}

} // namespace

void help_menu()
{
    const HotkeysOff no_pans;
    menus.status_bar_away = 1; // not by the option: a system that goes down meanwhile would store it
    build_screen(help_layout);
    show_page(0);
    while (run_pass(passes::plain) && gui.event[SLOT_EXIT].take() == 0)
        read_topics();
    build_draw_menu();
    menus.status_bar_away = 0;
}

void about_menu()
{
    clear_ghost();
    build_screen(about_layout);
    while (run_pass(passes::plain) && gui.event[SLOT_OKAY].take() == 0) {}
    menus.menu_id = MENU_USER;
}

} // namespace kelu
