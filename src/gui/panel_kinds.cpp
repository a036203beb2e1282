// SPDX-License-Identifier: MIT
// Kinds that are a panel: windows, grounds, progress, arrows.
#include "base/run_state.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "runtime/preferences.h"
#include "runtime/sheets.h"

namespace kelu {
namespace {

constexpr int dashed_frame = 2; // value of `frame_state`
constexpr int arrow_side = 7;   // pixels
constexpr int arrow_row = 114;  // of the GUI sheet; the lit form lies below

} // namespace

void draw_plain_panel(int slot, const Look& look)
{
    draw_panel(slot, look_colour(slot, look.fill), look_border(look), solid_opacity);
}

void draw_window(int slot, const Look&)
{
    if (preferences.backless_mode == 0) {
        draw_box(slot, gui.colour[slot], menu_scheme.scheme_border, gui.opacity[slot]);
    } else if (gui.frame_state[slot] == dashed_frame) {
        draw_dashed_rect(gui.x[slot], gui.y[slot], gui.x[slot] + gui.w[slot], gui.y[slot] + gui.h[slot]);
    }
}

void draw_failure_panel(int slot, const Look&)
{
    const int right = gui.x[slot] + gui.w[slot] - 1;
    const int bottom = gui.y[slot] + gui.h[slot] - 1;
    fill_area(gui.x[slot], gui.y[slot], right, bottom, fixed_colours.black);
    rect(gui_canvas, gui.x[slot], gui.y[slot], right, bottom, menu_scheme.scheme_highlight_fore);
}

void draw_progress(int slot, const Look&)
{
    draw_own_panel(slot);
    const int x = gui.x[slot];
    const int y = gui.y[slot];
    const int length = static_cast<int>((gui.w[slot] - 2) / 100.0 * gui.list_items[slot][0]);
    fill_area(x + 1, y + 1, x + length, y + 7, menu_scheme.scheme_highlight_fore);
    draw_corner_dots(slot, x, y, menu_scheme.scheme_border);
}

void draw_arrow_button(int slot, const Look&)
{
    const bool hovered = look_hovered(slot);
    draw_panel(slot, hovered ? menu_scheme.scheme_highlight_back : int(gui.colour[slot]), menu_scheme.scheme_border,
               solid_opacity);
    const int direction = gui.list_items[slot][0];
    if (!sheets.gui_sheet || (direction != 0 && direction != 2)) return;
    masked_blit(sheets.gui_sheet, gui_canvas, direction == 0 ? 4 : 19, arrow_row + (hovered ? arrow_side : 0),
                gui.x[slot] + gui.w[slot] / 2 - arrow_side / 2, gui.y[slot] + gui.h[slot] / 2 - arrow_side / 2,
                arrow_side, arrow_side);
}

} // namespace kelu
