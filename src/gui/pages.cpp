// SPDX-License-Identifier: MIT
// Kinds that hold whole texts: descriptions, the help page, the about box.
#include "base/version.h"
#include "gui/help_layout.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "gui/strings.h"
#include "gui/text.h"
#include "runtime/pixels.h"
#include "runtime/sheets.h"
#include <string>

namespace kelu {
namespace {

constexpr int help_line_h = 7, help_column_w = 6; // pixels
constexpr int lines_without_bar = 31;
constexpr int lines_past_bar = 30; // a bar's range is the lines less these
constexpr int backdrop_opacity = 38;
constexpr int logo_w = 173, logo_h = 33;
constexpr int title_rows = 12; // of a window, above what it holds

void draw_line(int slot, int x, int y, int colour_set, const char* text)
{
    set_plain_text(FONT_WIDE, colour_set);
    draw_text(gui_canvas, gui.x[slot] + x, gui.y[slot] + y, text);
}

} // namespace

void give_page_bar(int slot, const char* page)
{
    if (gui.items[slot][0] != -1) return;
    const int lines = help_line_count(page);
    gui.items[slot][0] = lines;
    const bool needs_bar = lines > lines_without_bar;
    if (needs_bar) {
        gui.scroll_min[slot] = 0;
        gui.scroll_max[slot] = lines - lines_past_bar;
        gui.scroll_steps[slot] = lines - lines_past_bar;
        gui.knob_pos[slot][knob_cross] = 0;
    }
    gui.scroll_on[slot] = needs_bar ? 1 : 0;
}

void draw_tool_text(int slot, const Look& look)
{
    draw_own_panel(slot);
    for (int k = 0; k < description_lines; ++k)
        draw_line(slot, 2, 13 + 6 * k, look.text,
                  ui_strings[first_description + description_lines * gui.text_id[slot] + k]);
}

void draw_help_page(int slot, const Look& look)
{
    draw_own_panel(slot);
    if (sheets.enlarged_picture)
        blend_sprite(sheets.enlarged_picture, gui_canvas, gui.x[slot] + 9, gui.y[slot] + 12, backdrop_opacity);
    const char* page = ui_strings[first_help_page + gui.text_id[slot]];
    give_page_bar(slot, page);
    const int first = gui.scroll_on[slot] ? int(gui.scroll_value[slot]) : 0;
    set_plain_text(FONT_WIDE, look.text);
    HelpWalk walk(page);
    HelpWord word;
    std::string text;
    while (walk.next(word)) {
        text.assign(word.text);
        const int line = word.line - first;
        if (line >= help_lines_shown) return;
        // Words above the view are measured, for the colour that they leave behind.
        const int x = line < 0 ? text_measure : gui.x[slot] + 3 + help_column_w * word.column;
        draw_text(gui_canvas, x, gui.y[slot] + 2 + help_line_h * line, text.c_str());
    }
}

void draw_about(int slot, const Look&)
{
    const int x = gui.x[slot];
    const int y = gui.y[slot];
    // The title of the box is above: the slot covers the window, and leaves those rows alone.
    fill_area(x + 1, y + title_rows, x + gui.w[slot] - 2, y + gui.h[slot] - 2, menu_scheme.scheme_background);
    draw_border(slot, menu_scheme.scheme_border);
    // The logo is on a band of the slot's colour.
    fill_area(x + 1, y + 13, x + gui.w[slot] - 2, y + 14 + logo_h + 1, gui.colour[slot]);
    if (sheets.app_sheet) masked_blit(sheets.app_sheet, gui_canvas, 0, 0, x + 4, y + 15, logo_w, logo_h);
    fill_area(x + 90, y + 57, x + 176, y + 63, menu_scheme.scheme_highlight_back);
    fill_area(x + 90, y + 67, x + 176, y + 73, menu_scheme.scheme_highlight_back);
    draw_line(slot, 4, 58, SET_HIGHLIGHT, "KELU VERSION");
    draw_line(slot, 93, 58, SET_SELECTED, version());
    draw_line(slot, 4, 68, SET_HIGHLIGHT, "COMPILED");
    draw_line(slot, 93, 68, SET_SELECTED, "01/29/2013");
    draw_line(slot, 4, 84, SET_HIGHLIGHT, "PAINTS, ANIMATES, RUNS ON");
    draw_line(slot, 4, 94, SET_HIGHLIGHT, "ALLEGRO 4, FREETYPE, ZLIB,");
    draw_line(slot, 4, 104, SET_HIGHLIGHT, "LIBJPEG AND A LOT OF COFFEE.");
    fill_area(x + 10, y + 125, x + 167, y + 131, menu_scheme.scheme_highlight_back);
    draw_line(slot, 14, 126, SET_SELECTED, "ONE PIXEL AFTER THE OTHER");
}

} // namespace kelu
