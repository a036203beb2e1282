// SPDX-License-Identifier: MIT
// The list that pops up over a screen.
#include "screens/list_popup.h"

#include "base/run_state.h"
#include "gui/build.h"
#include "gui/logic.h"
#include "loop/freeze.h"
#include "loop/pass.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int list_slot = 2, list_h = 65;
constexpr int bar_w = 10, text_margin = 13; // pixels that the bar, and the bar with its gap, take of the width
constexpr int pointer_dx = 20;              // from x to the middle of the list

void build_list(const ListPopup& list, int x, int y)
{
    build_slot(SlotRow{list_slot, x, y, list.w, KIND_LIST}
                   .high(list_h)
                   .with(ListRows{.first_text = list.first_text,
                                  .items = list.items,
                                  .rows = 9,
                                  .pitch = 7,
                                  .font = 5,
                                  .width = list.w - text_margin})
                   .with(ScrollBar{.steps = list.positions, .wheel = 2, .dx = list.w - bar_w}),
               0, 0);
    if (list.top_text != TEXT_NONE) gui.list_items[list_slot][0] = list.top_text;
}

int pressed_row()
{
    while (run_pass({.right_click = RightClick::LEAVES})) {
        const int row = left_down() ? list_row_under_pointer(list_slot) : -1;
        if (row >= 0) {
            const int entry = row + gui.scroll_value[list_slot];
            wait_left_release();
            return entry;
        }
        if (right_down()) {
            wait_right_release();
            return no_choice;
        }
    }
    return no_choice;
}

} // namespace

int choose_from_list(const ListPopup& list, int x, int y)
{
    freeze_menu();
    gui_clear_window();
    build_list(list, std::clamp(x + pointer_dx - list.w / 2, 0, logical_w - 1 - list.w),
               std::min(y, logical_h - list_h));
    const int chosen = pressed_row();
    gui_reset_slot(list_slot);
    clear_ghost();
    return chosen;
}

} // namespace kelu
