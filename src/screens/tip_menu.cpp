// SPDX-License-Identifier: MIT
// 36 tips, the custom tip, and the taking of a custom tip from the frame.
#include "screens/tip_menu.h"

#include "base/run_state.h"
#include "draw/preview.h"
#include "draw/tips.h"
#include "gui/build.h"
#include "gui/scheme.h"
#include "loop/actions.h"
#include "loop/home_strip.h"
#include "loop/tool_loop.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "screens/draw_menu.h"
#include <array>

namespace kelu {
namespace {

enum { SLOT_TITLE = 1, SLOT_CUSTOM = 2, SLOT_TIP_0 = 3, menu_slots = 39 };

constexpr int rows_of_tips = 3;
constexpr int custom_w = 16, custom_h = 14;    ///< size of the custom tip
constexpr int custom_sheet_y = 45;             ///< its place on the sheet, at x 0
constexpr int custom_left = 8, custom_top = 7; ///< pixels of it left of and above the pointer

int tip_slot(int tip) { return tip == custom_tip ? SLOT_CUSTOM : SLOT_TIP_0 + tip; }

void mark_tip(int tip)
{
    for (int slot = SLOT_CUSTOM; slot < menu_slots; ++slot) {
        gui.params[slot][0] = slot == tip_slot(tip) ? menu_scheme.scheme_highlight_fore : menu_scheme.scheme_border;
    }
}

void build_tip_menu()
{
    const std::array rows{
        title_row(2, 2, 52, TEXT_BRUSHIE),
        SlotRow{SLOT_CUSTOM, 2, 12, 52, KIND_CUSTOM_TIP, TEXT_NONE, ACT_CLICK, ACT_RIGHT_CLICK, TIP_TIP_CUSTOM}.high(
            49),
    };
    const Origin at = build_screen({.menu_id = MENU_TIP,
                                    .row = WINDOW_TIP,
                                    .x = 0,
                                    .y = 177,
                                    .w = 319,
                                    .h = 62,
                                    .slot_count = menu_slots,
                                    .slots = rows});
    for (int j = 0; j < rows_of_tips; ++j) {
        for (int i = 0; i < tips_per_row; ++i) {
            const int slot = SLOT_TIP_0 + j * tips_per_row + i;
            build_slot(
                SlotRow{slot, 55 + 22 * i, 2 + 20 * j, 21, KIND_TIP, TEXT_NONE, ACT_CLICK, ACT_NONE, TIP_TIP_CELL}.high(
                    19),
                at.x, at.y);
            gui.sheet_x[slot] = tip_cell_w * i;
            gui.sheet_y[slot] = tip_cell_h * j;
        }
    }
}

/// The grey form of the frame round a frame pixel, on the scheme's light ground where there is no frame.
void take_custom_tip(int x, int y)
{
    Bitmap cut(custom_w, custom_h, menu_scheme.scheme_highlight_back);
    if (!cut) return;
    blit(store.frame_bitmap, cut, x - custom_left, y - custom_top, 0, 0, custom_w, custom_h);
    for (int j = 0; j < custom_h; ++j) {
        for (int i = 0; i < custom_w; ++i) {
            int& pixel = row(cut, j)[i];
            const int grey = (red_of(pixel) + green_of(pixel) + blue_of(pixel)) / 3;
            pixel = pack_rgb(grey, grey, grey);
        }
    }
    blit(cut, store.tip_sheet, 0, 0, 0, custom_sheet_y, custom_w, custom_h);
}

void draw_selection()
{
    clear_to_color(screen_state.tool_overlay, mask_magenta);
    const int x = view.frame_mouse_x - view.pan_x;
    const int y = view.frame_mouse_y - view.pan_y;
    rect(screen_state.tool_overlay, x - custom_left - 1, y - custom_top - 1, x + custom_left, y + custom_top,
         fixed_colours.white);
}

/// The user clicks the middle of the new custom tip on the frame; a right click leaves the old one.
void pick_custom_tip()
{
    wait_right_release();
    const PreviewScope overlay(no_preview);
    gui.frame_state[SLOT_CUSTOM] = 2;
    for (draw_selection(); run_pass(passes::plain); draw_selection()) {
        if (left_down()) {
            wait_left_release();
            take_custom_tip(view.frame_mouse_x, view.frame_mouse_y);
            break;
        }
        if (right_down()) {
            wait_right_release();
            break;
        }
    }
    gui.frame_state[SLOT_CUSTOM] = 1;
    clear_to_color(screen_state.tool_overlay, mask_magenta);
}

/// The tip whose button is under the pointer, -1 for none.
int hovered_tip()
{
    const int slot = pointer.gui_hover_slot;
    return slot >= SLOT_TIP_0 && slot < menu_slots ? slot - SLOT_TIP_0 : -1;
}

} // namespace

int tip_menu()
{
    const int menu_before = menus.menu_id;
    build_tip_menu();
    mark_tip(toolbox.brush_tip);
    wait_for_release(ACTION_TIP_SELECT);
    int chosen = -1;
    const auto choose = [&chosen](int tip) {
        chosen = tip;
        mark_tip(tip);
    };
    constexpr Pass pass{.hotkeys = IN_ANY_MENU, .right_click = RightClick::LEAVES, .leave_key = ACTION_TIP_SELECT};
    while (run_pass(pass)) {
        if (left_down() && hovered_tip() >= 0) {
            choose(hovered_tip());
            wait_left_release();
        }
        const int custom = gui.event[SLOT_CUSTOM].take();
        if (custom > 0) choose(custom_tip);
        if (custom == EVENT_RIGHT) pick_custom_tip();
    }
    menus.menu_id = menu_before;
    return chosen;
}

void choose_tip()
{
    const int tip = tip_menu();
    if (tip >= 0) set_brush_tip(tip);
    build_draw_menu();
}

} // namespace kelu
