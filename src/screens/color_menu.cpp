// SPDX-License-Identifier: MIT
// Tabs and variance cells; the rest is the colour editor's.
#include "screens/color_menu.h"

#include "loop/actions.h"
#include "runtime/color_settings.h"
#include "runtime/hotkeys.h"
#include "runtime/toolbox.h"
#include "screens/color_editor.h"

namespace kelu {
namespace {

enum {
    SLOT_TAB_0 = 2,
    SLOT_HUE_CAPTION = EDITOR_END,
    SLOT_LIGHT_CAPTION,
    SLOT_SATURATION_CAPTION,
    SLOT_VARIANCE_0,
    SLOT_VARIANCE_END = SLOT_VARIANCE_0 + 42,
    SLOT_MAP = SLOT_VARIANCE_END,
    menu_slots
};

constexpr int variance_rows = 3;
constexpr int most_steps = 7;                ///< cells on one side of the base colour
constexpr int cells_of_row = 2 * most_steps; ///< the base colour itself has none
constexpr int second_half_x = 82;

constexpr SlotRow tab_row(int tab, int x, int y, int text, int action, int tooltip)
{
    return {SLOT_TAB_0 + tab, x, y, standard_button_w, KIND_BUTTON, text, action, ACT_NONE, tooltip};
}

constexpr std::array own_rows{
    title_row(2, 2, 79, TEXT_COLORSPACE),
    tab_row(COLORSPACE_VGA, 2, 12, TEXT_VGA, ACT_TAB_VGA, TIP_TAB_VGA),
    tab_row(COLORSPACE_RGB, 42, 12, TEXT_RGB, ACT_TAB_RGB, TIP_TAB_RGB),
    tab_row(COLORSPACE_HLS, 2, 22, TEXT_HLS, ACT_TAB_HLS, TIP_TAB_HLS),
    tab_row(COLORSPACE_HSV, 42, 22, TEXT_HSV, ACT_TAB_HSV, TIP_TAB_HSV),
    caption_row(SLOT_HUE_CAPTION, 2, 32, 156, TEXT_VARIANCE_HUE),
    caption_row(SLOT_LIGHT_CAPTION, 2, 52, 156, TEXT_VARIANCE_LIGHT),
    caption_row(SLOT_SATURATION_CAPTION, 2, 72, 156, TEXT_VARIANCE_SATURATION),
};
constexpr MenuLayout layout{.menu_id = MENU_COLOR,
                            .row = WINDOW_COLOR,
                            .x = 0,
                            .y = 147,
                            .w = 319,
                            .h = 92,
                            .slot_count = menu_slots,
                            .slots = own_rows};

/// The step of a cell, 0 to 13 from the left: hue rises to the right, lightness and saturation to the left.
constexpr int variance_step(int row, int cell)
{
    const int rising = cell < most_steps ? cell - most_steps : cell - most_steps + 1;
    return row == 0 ? rising : -rising;
}

void build_variance(Origin at)
{
    for (int row = 0; row < variance_rows; ++row) {
        for (int cell = 0; cell < cells_of_row; ++cell) {
            const int left = cell < most_steps ? 2 : second_half_x;
            build_slot({SLOT_VARIANCE_0 + cells_of_row * row + cell, left + 11 * (cell % most_steps), 42 + 20 * row, 10,
                        KIND_VARIANCE_HUE + row, variance_step(row, cell), ACT_CLICK, ACT_NONE, TIP_VARIATION},
                       at.x, at.y);
        }
    }
}

void show_variance(int base)
{
    for (int slot = SLOT_VARIANCE_0; slot < SLOT_VARIANCE_END; ++slot)
        gui.params[slot][0] = base;
}

void read_variance(ColorEditor& editor)
{
    for (int slot = SLOT_VARIANCE_0; slot < SLOT_VARIANCE_END; ++slot) {
        if (gui.event[slot].take() > 0) editor.set_color(gui.colour[slot]);
    }
}

void light_tab()
{
    for (int tab = 0; tab < COLORSPACE_COUNT; ++tab)
        gui.kind[SLOT_TAB_0 + tab] = tab == color_settings.colorspace ? KIND_BUTTON_LIT : KIND_BUTTON;
}

void read_tabs(ColorEditor& editor)
{
    const int wanted = color_menu_state.wanted_tab.take();
    if (wanted == 0) return;
    editor.set_colorspace(wanted - 1);
    light_tab();
}

void run_color_menu(Shared<int>& target)
{
    color_menu_state.wanted_tab = 0;
    const Origin at = build_screen(layout);
    ColorEditor editor(target, SLOT_MAP);
    editor.build(at);
    build_variance(at);
    light_tab();
    show_variance(target);
    wait_for_release(ACTION_COLOR_MENU);
    while (editor.run_pass(ACTION_COLOR_MENU)) {
        read_tabs(editor);
        read_variance(editor);
        show_variance(target);
    }
    menus.menu_id = MENU_DRAW;
}

} // namespace

int color_menu(ColorTarget target, int value)
{
    Shared<int> own = value;
    Shared<int>& edited = target == ColorTarget::BRUSH  ? toolbox.brush_color
                          : target == ColorTarget::MASK ? toolbox.mask_color
                                                        : own;
    run_color_menu(edited);
    return edited;
}

void request_colour_tab(int tab) { color_menu_state.wanted_tab = tab + 1; }

} // namespace kelu
