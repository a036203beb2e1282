// SPDX-License-Identifier: MIT
// Drawing of scroll bars: arrows, rail, knob, and the number at the knob.
#include "base/run_state.h"
#include "gui/kinds.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/scroll_bar.h"
#include "gui/slots.h"
#include "gui/text.h"
#include "runtime/input.h"
#include "runtime/pixels.h"
#include "runtime/sheets.h"
#include <algorithm>
#include <array>
#include <cstdio>

namespace kelu {
namespace {

constexpr int corner_mix = 222; // of the rail's corners, towards the inner line
constexpr int tag_mix = 64;     // of the tag's ground, towards black
constexpr int cap_w = 4, cap_h = 7;
constexpr int cap_row = 126; // of the GUI sheet
constexpr int right_cap = 39, left_cap = 44;

struct Rail {
    int outline, inner;
};

Rail rail_colours(int slot)
{
    const int kind = gui.kind[slot];
    if (kind == KIND_SCHEME_PANEL || kind == KIND_SCHEME_LIST)
        return {menu_scheme.scheme[SCHEME_SHADOW], menu_scheme.scheme[SCHEME_BORDER]};
    return {menu_scheme.scheme_shadow, menu_scheme.scheme_border};
}

void from_sheet(int sheet_x, int sheet_y, int x, int y, int w, int h)
{
    if (sheets.gui_sheet) masked_blit(sheets.gui_sheet, gui_canvas, sheet_x, sheet_y, x, y, w, h);
}

/// Three pixels wide: outline, a light line inside, softened corners.
void draw_rail(int x1, int y1, int x2, int y2, const Rail& rail)
{
    if (x1 > x2 || y1 > y2) return;
    fill_area(x1, y1, x2, y2, rail.outline);
    fill_area(x1 + 1, y1 + 1, x2 - 1, y2 - 1, rail.inner);
    const int corner = mix_colors(rail.outline, rail.inner, corner_mix);
    put_dot(x1, y1, corner);
    put_dot(x2, y1, corner);
    put_dot(x1, y2, corner);
    put_dot(x2, y2, corner);
}

/// Arrow 0 or 1, in its lit form while it is held and under the pointer.
void draw_arrow(int slot, int which)
{
    const auto at = 2 * which;
    const bool held =
        gui_logic.gui_capture == 2 + which && pointer.gui_hold_slot == slot && pointer.gui_hover_slot == slot;
    const int w = gui.arrow_w[slot];
    const int h = gui.arrow_h[slot];
    from_sheet(gui.arrow_sheet[slot][at], gui.arrow_sheet[slot][at + 1] + (held ? h : 0), gui.arrow_box[slot][at],
               gui.arrow_box[slot][at + 1], w, h);
}

void draw_knob(int slot, int x, int y)
{
    const auto& knob = gui.knob_sheet[slot];
    from_sheet(knob[0], knob[1], x, y, knob[2], knob[3]);
}

/// The number behind `scroll_show`, right of the knob, or left of it where the rail has no room.
void draw_tag(int slot, int knob_x, int y)
{
    const Shared<int>* shown = gui.scroll_show[slot];
    if (!shown) return;
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%d", int(*shown));
    set_plain_text(FONT_NARROW, SET_SLIDER_TAG);
    const int width = text_width(text.data());
    const int last = gui.knob_pos[slot][std::max(1, int(gui.scroll_steps[slot])) - 1];
    const bool at_left = last < width + 5 + knob_x;
    const int left = at_left ? knob_x - width - 1 : knob_x + gui.knob_sheet[slot][2];
    fill_area(left, y, left + width, y + cap_h - 1,
              mix_colors(menu_scheme.scheme_shadow, fixed_colours.black, tag_mix));
    from_sheet(at_left ? left_cap : right_cap, cap_row, at_left ? left - cap_w : left + width + 1, y, cap_w, cap_h);
    draw_text(gui_canvas, left + 1, y + 1, text.data());
}

void draw_horizontal(int slot, int knob_x, const Rail& colours)
{
    const int x = gui.x[slot] + gui.scroll_dx[slot];
    const int y = gui.y[slot] + gui.scroll_dy[slot];
    const int rail_y = y + gui.arrow_h[slot] / 2;
    const int arrow_w = gui.arrow_w[slot];
    const int length =
        gui.scroll_length[slot] ? gui.scroll_length[slot] : gui.w[slot] - gui.scroll_dx[slot] - 2 * arrow_w;
    draw_rail(x + arrow_w + 3, rail_y, x + length + 3, rail_y + 2, colours);
    draw_arrow(slot, 0);
    draw_arrow(slot, 1);
    draw_tag(slot, knob_x, y + 1);
    draw_knob(slot, knob_x, rail_y + 1 - gui.knob_sheet[slot][3] / 2);
}

void draw_vertical(int slot, int knob_y, const Rail& colours)
{
    const int x = gui.x[slot] + gui.scroll_dx[slot];
    const int y = gui.y[slot] + gui.scroll_dy[slot];
    const int rail_x = x + gui.arrow_w[slot] / 2; // its middle line
    const int arrow_h = gui.arrow_h[slot];
    const int length =
        gui.scroll_length[slot] ? gui.scroll_length[slot] - arrow_h : gui.h[slot] - gui.scroll_dy[slot] - 2 * arrow_h;
    draw_rail(rail_x - 1, y + 3 + arrow_h, rail_x + 1, y + 3 + length, colours);
    draw_arrow(slot, 0);
    draw_arrow(slot, 1);
    draw_knob(slot, rail_x - gui.knob_sheet[slot][2] / 2, knob_y);
}

} // namespace

void draw_scroll_bar(int slot)
{
    place_arrows(slot);
    if (gui.knob_pos[slot][knob_cross] == 0) build_knob_table(slot);
    const int knob = gui.knob_pos[slot][knob_index(slot)];
    if (gui.scroll_horizontal[slot]) {
        draw_horizontal(slot, knob, rail_colours(slot));
    } else {
        draw_vertical(slot, knob, rail_colours(slot));
    }
}

} // namespace kelu
