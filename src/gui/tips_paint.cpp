// SPDX-License-Identifier: MIT
// Kinds that show brush tips. A tip is a cell of the tip sheet, dark on light grey.
#include "base/run_state.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "gui/text.h"
#include "runtime/sheets.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"

namespace kelu {
namespace {

constexpr int one_pixel_slot = 38; // of the tip menu: the tip of one pixel says so
constexpr int no_tip_from = 1000;  // tip numbers above show nothing
constexpr int custom_y = 45;       // of the custom tip in the sheet
constexpr int custom_w = 16, custom_h = 14;
constexpr int piece_w = 9, piece_h = 7; // what a button shows of a tip

void draw_word(int slot, int x, int y, int font, int colour_set, const char* word)
{
    set_plain_text(font, colour_set);
    draw_text(gui_canvas, gui.x[slot] + x, gui.y[slot] + y, word);
}

} // namespace

void draw_tip(int slot, const Look&)
{
    draw_panel(slot, fixed_colours.light_grey, gui.params[slot][0], solid_opacity);
    if (store.tip_sheet)
        blit(store.tip_sheet, gui_canvas, gui.sheet_x[slot], gui.sheet_y[slot], gui.x[slot] + 2, gui.y[slot] + 2,
             tip_cell_w, tip_cell_h);
    if (slot != one_pixel_slot) return;
    draw_word(slot, 5, 2, FONT_NARROW, SET_BUTTON, "DOT");
    draw_word(slot, 3, 12, FONT_NARROW, SET_BUTTON, "ONLY");
}

void draw_custom_tip(int slot, const Look&)
{
    draw_panel(slot, gui.colour[slot], gui.params[slot][0], solid_opacity);
    if (store.tip_sheet)
        stretch_blit(store.tip_sheet, gui_canvas, 0, custom_y, custom_w, custom_h, gui.x[slot] + 10, gui.y[slot] + 6,
                     2 * custom_w, 2 * custom_h);
    draw_word(slot, 8, 40, FONT_WIDE, SET_LIGHT, "CUSTOM");
}

void draw_tip_button(int slot, const Look&)
{
    draw_own_panel(slot);
    const int tip = gui.list_items[slot][0] ? int(gui.list_items[slot][1]) : toolbox.brush_tip;
    if (tip < 0 || tip > no_tip_from || !store.tip_sheet) return;
    const int sheet_x = tip_cell_w * (tip % tips_per_row) + 4;
    const int sheet_y = tip_cell_h * (tip / tips_per_row) + 4;
    blit(store.tip_sheet, gui_canvas, sheet_x, sheet_y, gui.x[slot] + 6, gui.y[slot] + 1, piece_w, piece_h);
    draw_corner_dots(slot, gui.x[slot], gui.y[slot], menu_scheme.scheme_border);
}

} // namespace kelu
