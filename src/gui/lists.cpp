// SPDX-License-Identifier: MIT
// Lists: rows of labels, and the file browser's names.
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "gui/strings.h"
#include "gui/text.h"
#include "runtime/browser_list.h"
#include "runtime/browser_state.h"
#include "runtime/frame_snapshot.h"
#include "runtime/input.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int file_rows = 13;
constexpr int file_pitch = 6; // pixels from name to name
constexpr int bar_room = 13;  // pixels that a bar takes from a highlighted row

int file_set(int entry, bool pointed)
{
    if (pointed) return SET_TOOLTIP;
    const bool selectable = browser_listing.selected_row < 0 || browser_listing.selected_row == entry;
    if (selectable && browser_state.browser_file == browser_listing.browser_list[entry].data()) return SET_SELECTED;
    return browser_listing.browser_isdir[entry] ? SET_FOLDER : SET_BUTTON;
}

} // namespace

namespace {

/// Fills row r of those in view; nothing when it isn't one.
void fill_row(int slot, int r, int colour)
{
    if (r < 0 || r >= gui.list_rows[slot]) return;
    const int pitch = gui.row_height[slot];
    const int width = gui.row_width[slot] ? gui.row_width[slot] : gui.w[slot];
    fill_area(gui.x[slot] + 2, gui.y[slot] + 1 + r * pitch, gui.x[slot] + width, gui.y[slot] + pitch + r * pitch,
              colour);
}

/// The text of row r of those in view; `TEXT_NONE` for one that the list doesn't have.
int text_of_row(int slot, int r)
{
    const int entry = r + gui.scroll_value[slot];
    return entry >= 0 && entry < max_list_items ? int(gui.list_items[slot][entry]) : TEXT_NONE;
}

/// Folders and the chosen file stand in the scheme's preview on the grounds that they have in a list of files.
void draw_preview_grounds(int slot)
{
    for (int r = 0; r < gui.list_rows[slot]; ++r) {
        const int id = text_of_row(slot, r);
        if (id == TEXT_SCHEME_ROW_UP) fill_row(slot, r, menu_scheme.scheme[SCHEME_BACKGROUND]);
        if (id == TEXT_SCHEME_ROW_SELECTED) fill_row(slot, r, menu_scheme.scheme[SCHEME_HIGHLIGHT_BACK]);
    }
}

} // namespace

void draw_row_highlight(int slot, int colour)
{
    const int pitch = gui.row_height[slot];
    if (pointer.gui_hover_slot != slot || gui.hover_row[slot] == -1 || pitch < 1) return;
    const int x = gui.x[slot];
    const int y = gui.y[slot];
    const int width = gui.row_width[slot] ? gui.row_width[slot] : gui.w[slot];
    const int top = (frame_snapshot.mouse_y - 1 - y) / pitch * pitch;
    fill_area(x + 2, y + 1 + top, x + width, y + pitch + top, colour);
}

void draw_list_rows(int slot, bool centred)
{
    const int font = std::clamp(int(gui.row_font[slot]), 0, FONT_SLOT_COUNT - 1);
    const int pitch = gui.row_height[slot];
    const int width = gui.row_width[slot] ? gui.row_width[slot] : gui.w[slot];
    const int inset = gui.row_text_y[slot] + (pitch - font_table[font].cell_h) / 2;
    for (int r = 0; r < gui.list_rows[slot]; ++r) {
        const int entry = r + gui.scroll_value[slot];
        const char* text = ui_strings[text_of_row(slot, r)];
        if (*text == 0) continue;
        set_plain_text(font, entry == gui.params[slot][0] - 1 ? SET_SELECTED : SET_LIGHT);
        const int x = centred ? gui.x[slot] + width / 2 - text_width(text) / 2 : gui.x[slot] + 3 + gui.row_text_x[slot];
        draw_text(gui_canvas, x, gui.y[slot] + 1 + inset + r * pitch, text);
    }
}

void draw_list(int slot, const Look& look)
{
    draw_plain_panel(slot, look);
    const bool edited = look_edited(look);
    draw_row_highlight(slot, edited ? menu_scheme.scheme[SCHEME_SHADOW] : menu_scheme.scheme_shadow);
    if (edited) draw_preview_grounds(slot);
    if (const int marked = gui.params[slot][0]; marked > 0)
        fill_row(slot, marked - 1 - gui.scroll_value[slot], menu_scheme.scheme_highlight_back);
    draw_list_rows(slot, false);
}

void draw_file_list(int slot, const Look& look)
{
    draw_plain_panel(slot, look);
    const int x = gui.x[slot];
    const int y = gui.y[slot];
    const bool hovered = pointer.gui_hover_slot == slot;
    const int pointed = hovered ? (frame_snapshot.mouse_y - 2 - y) / file_pitch : -1;
    for (int r = 0; r < file_rows; ++r) {
        const int entry = r + gui.scroll_value[slot];
        if (entry < 0 || entry >= std::min(browser_listing.browser_count, browser_list_rows)) return;
        const int set = file_set(entry, r == pointed);
        if (r == pointed || set == SET_SELECTED) {
            const int right = x + gui.w[slot] - (gui.scroll_on[slot] ? bar_room : 2);
            const int top = y + 1 + file_pitch * r;
            fill_area(x + 2, top, right, top + file_pitch,
                      r == pointed ? menu_scheme.scheme_shadow : menu_scheme.scheme_highlight_back);
        }
        draw_characters(x + 3, y + 2 + file_pitch * r, browser_listing.browser_list[entry].data(),
                        gui.field_visible[slot], set);
    }
}

} // namespace kelu
