// SPDX-License-Identifier: MIT
// The strip's layout.
#include "loop/home_strip.h"

#include "gui/build.h"
#include "gui/scheme.h"
#include "runtime/toolbox.h"
#include <array>

namespace kelu {
namespace {

constexpr int draw_menu_slots = 35;
constexpr int cells_in_menu = 10;

constexpr SlotRow column_row(int slot, int x, int text, int right, int tooltip)
{
    return {slot, x, 2, standard_button_w, KIND_PUSH_DARK, text, ACT_CLICK, right, tooltip};
}
constexpr SlotRow both_clicks(int slot, int x, int y, int w, int kind, int tooltip)
{
    return {slot, x, y, w, kind, TEXT_NONE, ACT_CLICK, ACT_RIGHT_CLICK, tooltip};
}

constexpr std::array fixed_rows{
    title_row(2, 2, standard_button_w, TEXT_HOME),
    column_row(SLOT_FRAME, 82, TEXT_FRAME, ACT_NONE, TIP_FRAME_COLUMN),
    column_row(SLOT_UNDO, 42, TEXT_UNDO, ACT_RIGHT_CLICK, TIP_UNDO),
    column_row(SLOT_PIC, 199, TEXT_PIC, ACT_NONE, TIP_PIC_COLUMN),
    column_row(SLOT_CEL, 239, TEXT_CEL, ACT_NONE, TIP_CEL_COLUMN),
    column_row(SLOT_USER, 279, TEXT_USER, ACT_NONE, TIP_USER_COLUMN),
    both_clicks(SLOT_MASK, 122, 2, 21, KIND_MASK_SWATCH, TIP_NEW_MASK_COLOR),
    both_clicks(SLOT_BRUSH, 122, 12, 21, KIND_BRUSH_SWATCH, TIP_NEW_BRUSH_COLOR),
    SlotRow{SLOT_TIP, 122, 22, 21, KIND_TIP_BUTTON, TEXT_NONE, ACT_CLICK, ACT_CLICK, TIP_BRUSH_TIP}.filled(
        FILL_LIGHT_GREY),
    both_clicks(SLOT_SPECTRUM, 144, 22, 54, KIND_SPECTRUM, TIP_SPECTRUM),
};

constexpr MenuLayout layout{.menu_id = MENU_DRAW,
                            .row = WINDOW_DRAW,
                            .x = 0,
                            .y = 207,
                            .w = 319,
                            .h = 32,
                            .slot_count = draw_menu_slots,
                            .slots = fixed_rows};

/// The three-by-two block of tool or ink buttons from x on.
void build_choices(Origin at, int first_slot, int x, int first_text, std::span<const Shared<int>> ids, int selected,
                   int tooltip)
{
    for (int i = 0; i < 6; ++i) {
        const int kind = i == selected ? KIND_BUTTON_LIT : KIND_BUTTON;
        const int text = first_text + ids[i];
        build_slot({first_slot + i, x + 40 * (i % 3), 12 + 10 * (i / 3), standard_button_w, kind, text, ACT_CLICK,
                    ACT_RIGHT_CLICK, tooltip},
                   at.x, at.y);
    }
}

void build_favorites(Origin at)
{
    for (int i = 0; i < cells_in_menu; ++i) {
        const int slot = SLOT_FAVORITE_0 + i;
        SlotRow cell = both_clicks(slot, 144 + 11 * (i % 5), 2 + 10 * (i / 5), 10, KIND_COLOR_CELL, TIP_NEW_SLOT_COLOR);
        build_slot(cell, at.x, at.y);
        gui.colour[slot] = toolbox.favorites[i];
    }
}

} // namespace

void build_draw_menu()
{
    const Origin at = build_screen(layout);
    build_choices(at, SLOT_TOOL_0, 2, first_tool_name, toolbox.tool_slots, toolbox.tool_slot, TIP_TOOL_SLOT);
    build_choices(at, SLOT_INK_0, 199, first_ink_name, toolbox.ink_slots, toolbox.ink_slot, TIP_INK_SLOT);
    build_favorites(at);
    gui.params[SLOT_SPECTRUM][0] = menu_scheme.scheme_border;
    if (home_strip.hidden_by_user != 0) menu_hide(0);
}

void flip_draw_menu()
{
    menu_toggle_hidden(0);
    home_strip.hidden_by_user = gui.hidden[0] != 0 ? 1 : 0;
    if (home_strip.hidden_by_user != 0)
        flash_status_message(TIP_MENU_HIDDEN);
    else if (menus.status_message == TIP_MENU_HIDDEN)
        menus.status_message = TIP_NONE;
}

} // namespace kelu
