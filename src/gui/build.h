// SPDX-License-Identifier: MIT
// How screens are built: the five helpers, and windows as tables of rows.
//
// A screen is an enum of slots, a constexpr array of SlotRow and one MenuLayout. `build_screen` places the window where
// the user left it, fills every slot and stores `active` last; the rows' places count from the window's top left
// corner.
#pragma once

#include "gui/kinds.h"
#include "gui/menus.h"
#include "gui/slots.h"
#include "gui/strings.h"
#include "gui/tooltips.h"
#include <span>

namespace kelu {

/// Fill of a slot, as a role of the colour scheme.
enum Fill : int {
    FILL_BY_KIND, ///< the usual colour of the kind, see usual_fill
    FILL_BACKGROUND,
    FILL_BORDER,
    FILL_SHADOW,
    FILL_HIGHLIGHT_FORE,
    FILL_HIGHLIGHT_BACK,
    FILL_LIGHT_GREY, ///< 219, the ground of brush tips
    FILL_BLACK
};

/// Rows of a list: `items` texts from `first_text` on, of which `rows` show.
struct ListRows {
    int first_text = 0;
    int items = 0;
    int rows = 0;
    int pitch = standard_row_height;
    int font = 4;
    int text_y = 0, text_x = 0;
    int width = 0; ///< of the rows' area, 0: the slot's
};

/// A scroll bar or slider: values from `min` to `max` - 1; a `max` of 0 is `min` + `steps`.
struct ScrollBar {
    int steps = 0;
    int wheel = 1;
    int dx = 0, dy = 0;
    int min = 0, max = 0;
    int length = 0;
    bool horizontal = false;
};

/// A text field.
struct TextField {
    int visible = 0;
    int max = 0;
    int font = 5;
};

/// One slot of a screen. The first members are in the order of a layout table; the rest is added by name, as in
/// `SlotRow{SLOT_LIST, 2, 12, 72, KIND_LIST}.high(65).with(ListRows{...})`.
struct SlotRow {
    int slot = 0;
    int x = 0, y = 0; ///< from the window's corner
    int w = standard_button_w;
    int kind = KIND_BUTTON;
    int text = TEXT_NONE;
    int left = ACT_NONE;
    int right = ACT_NONE;
    int tooltip = TIP_NONE;
    int h = standard_button_h;
    int fill = FILL_BY_KIND; ///< a Fill
    int colour_set = -1;     ///< of the kinds that keep one in `colour`
    int hover = 1;           ///< 0: the pointer goes through
    ListRows list{};
    ScrollBar bar{};
    TextField field{};

    constexpr SlotRow high(int height) const
    {
        SlotRow row = *this;
        row.h = height;
        return row;
    }
    constexpr SlotRow filled(int role) const
    {
        SlotRow row = *this;
        row.fill = role;
        return row;
    }
    constexpr SlotRow inked(int set) const
    {
        SlotRow row = *this;
        row.colour_set = set;
        return row;
    }
    constexpr SlotRow no_hover() const
    {
        SlotRow row = *this;
        row.hover = 0;
        return row;
    }
    constexpr SlotRow with(ListRows added) const
    {
        SlotRow row = *this;
        row.list = added;
        return row;
    }
    constexpr SlotRow with(ScrollBar added) const
    {
        SlotRow row = *this;
        row.bar = added;
        return row;
    }
    constexpr SlotRow with(TextField added) const
    {
        SlotRow row = *this;
        row.field = added;
        return row;
    }
};

/// Rows that nearly every screen has.
constexpr SlotRow title_row(int x, int y, int w, int text)
{
    return {1, x, y, w, KIND_TITLE, text, ACT_DRAG, ACT_NONE, TIP_DRAG_MENU};
}
constexpr SlotRow caption_row(int slot, int x, int y, int w, int text)
{
    return SlotRow{slot, x, y, w, KIND_BUTTON, text}.filled(FILL_BORDER);
}
constexpr SlotRow push_row(int slot, int x, int y, int w, int text, int tooltip = TIP_NONE)
{
    return {slot, x, y, w, KIND_PUSH, text, ACT_CLICK, ACT_NONE, tooltip};
}
constexpr SlotRow slider_row(int slot, int x, int y, int w, int steps, int wheel = 10, int tooltip = TIP_NONE)
{
    return SlotRow{slot, x, y, w, KIND_PANEL, TEXT_NONE, ACT_NONE, ACT_NONE, tooltip}.with(
        ScrollBar{.steps = steps, .wheel = wheel, .horizontal = true});
}
constexpr SlotRow field_row(int slot, int x, int y, int w, int visible, int max)
{
    return SlotRow{slot, x, y, w, KIND_TEXT_FIELD, TEXT_NONE, ACT_FOCUS}.with(TextField{visible, max});
}

/// A window and its slots.
struct MenuLayout {
    int menu_id = MENU_DRAW;
    int row = WINDOW_NONE; ///< row of `window_pos`
    int x = 0, y = 0;      ///< default place
    int w = 0, h = 0;
    int slot_count = 0; ///< slots 0 to slot_count - 1 belong to the window
    std::span<const SlotRow> slots;
};

/// Where a window opens.
struct Origin {
    int x = 0, y = 0;
};

/// Opens a screen: clears the open window, sets `menu_id`, and builds window and slots at the stored place, or at the
/// default place moved just so far that the window fits. A screen without a field takes the key focus away. Returns
/// the window's place.
Origin build_screen(const MenuLayout& screen);
/// The same at a given place.
Origin build_screen_at(const MenuLayout& screen, int x, int y);
/// Clears the slots of the open window; `menu_id` is the drawing menu's again.
void close_screen();
/// Builds one slot of a screen; x and y are the window's corner. Returns the slot.
int build_slot(const SlotRow& row, int x, int y);
/// Builds several.
void build_slots(std::span<const SlotRow> rows, int x, int y);
/// Default place of a w x h window, moved up and left just so far that it fits on the screen.
Origin fitted_origin(int x, int y, int w, int h);
/// The stored place of a window, or its fitted default place.
Origin window_origin(const MenuLayout& screen);

/// Slot 0: the window's ground with `slot_count` slots. Places are screen positions, here and below.
void gui_window(int x, int y, int w, int h, int slot_count);
/// Slot 1: the title, by which the window is dragged.
void gui_title(int x, int y, int w, int text_id);
/// A button of standard size in colour `colour`, without an action.
void gui_button(int slot, int x, int y, int colour, int text_id);
/// A label on the border's colour.
void gui_caption(int slot, int x, int y, int w, int text_id);
/// A horizontal slider of `steps` values from 0 on; the wheel moves it by 10.
void gui_slider(int slot, int x, int y, int w, int steps);

/// Gives a list its texts: rows `first` to `first` + `count` - 1 of ui_strings, at most 72.
void set_list_texts(int slot, int first, int count);
/// Sets the text of a field, cut at `field_max`; the caret goes behind it, the view to its start.
void set_field_text(int slot, const char* text);
/// The text of a field, in a buffer of `field_bytes`.
using FieldText = std::array<char, field_bytes>;
FieldText field_text_of(int slot);
/// The number that a field holds, 0 when it begins with none; held to 9 digits.
int field_number(int slot);
/// Ties a slider to a word: it starts at the word's value, held to its range, shows the number at the knob, and the
/// logic writes it through at every pass.
void bind_slider(int slot, Shared<int>& word);
/// Colour of a role in the live scheme.
int fill_colour(int role);

} // namespace kelu
