// SPDX-License-Identifier: MIT
// Building of windows and slots.
#include "gui/build.h"

#include "base/run_state.h"
#include "gui/scheme.h"
#include "gui/scroll_bar.h"
#include "runtime/fonts.h"
#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace kelu {
namespace {

/// The colour of a kind where its row names none.
int usual_fill(int kind)
{
    switch (kind) {
    case KIND_TITLE:
    case KIND_ABOUT:
    case KIND_QUICK_PAN:
    case KIND_ZOOM_PREVIEW:
    case KIND_CUSTOM_TIP:
        return FILL_SHADOW;
    case KIND_TEXT_FIELD:
    case KIND_LIST:
        return FILL_BORDER; // light text, and caret and highlight in the shadow's colour
    case KIND_NUMBER:
    case KIND_FRAME_COUNT:
    case KIND_HELP_PAGE:
        return FILL_HIGHLIGHT_BACK; // blue text
    case KIND_TIP:
    case KIND_TIP_BUTTON:
        return FILL_LIGHT_GREY;
    default:
        return FILL_BACKGROUND;
    }
}

void place_slot(int slot, int x, int y, int w, int h)
{
    gui.x[slot] = x;
    gui.y[slot] = y;
    gui.w[slot] = w;
    gui.h[slot] = h;
}

void give_list(int slot, const ListRows& list)
{
    gui.list_rows[slot] = list.rows;
    gui.row_height[slot] = list.pitch;
    gui.row_font[slot] = list.font;
    gui.row_text_y[slot] = list.text_y;
    gui.row_text_x[slot] = list.text_x;
    gui.row_width[slot] = list.width;
    set_list_texts(slot, list.first_text, list.items);
}

void give_bar(int slot, const ScrollBar& bar)
{
    gui.scroll_horizontal[slot] = bar.horizontal ? 1 : 0;
    gui.scroll_min[slot] = bar.min;
    gui.scroll_max[slot] = bar.max ? bar.max : bar.min + bar.steps;
    gui.scroll_value[slot] = bar.min;
    gui.scroll_steps[slot] = bar.steps;
    gui.scroll_dx[slot] = bar.dx;
    gui.scroll_dy[slot] = bar.dy;
    gui.scroll_length[slot] = bar.length;
    gui.wheel_step[slot] = bar.wheel;
    gui_set_scroll_look(slot);
    build_knob_table(slot);
    gui.scroll_on[slot] = 1;
}

/// Everything of a standard slot but its `active` word.
void fill_standard(int slot, int kind, int x, int y, int w, int colour, int text_id)
{
    gui_reset_slot(slot);
    place_slot(slot, x, y, w, standard_button_h);
    gui.kind[slot] = kind;
    gui.colour[slot] = colour;
    gui.text_id[slot] = text_id;
}

} // namespace

Origin build_screen(const MenuLayout& screen)
{
    const Origin origin = window_origin(screen);
    return build_screen_at(screen, origin.x, origin.y);
}

Origin build_screen_at(const MenuLayout& screen, int x, int y)
{
    gui_clear_window();
    menus.menu_id = screen.menu_id;
    const auto is_field = [](const SlotRow& row) { return row.left == ACT_FOCUS; };
    if (std::ranges::none_of(screen.slots, is_field)) gui_logic.gui_key_focus = -1;
    gui_window(x, y, screen.w, screen.h, screen.slot_count);
    build_slots(screen.slots, x, y);
    if (screen.row >= 0) gui.label_row[1] = screen.row;
    return {x, y};
}

void close_screen()
{
    gui_clear_window();
    menus.menu_id = MENU_DRAW;
}

int build_slot(const SlotRow& row, int x, int y)
{
    const int slot = gui_reset_slot(row.slot);
    place_slot(slot, x + row.x, y + row.y, row.w, row.h);
    gui.kind[slot] = row.kind;
    gui.text_id[slot] = row.text;
    gui.left_action[slot] = row.left;
    gui.right_action[slot] = row.right;
    gui.tooltip[slot] = row.tooltip;
    gui.hover_target[slot] = row.hover;
    const int fill = row.fill == FILL_BY_KIND ? usual_fill(row.kind) : row.fill;
    gui.colour[slot] = row.colour_set >= 0 ? row.colour_set : fill_colour(fill);
    if (row.list.rows) give_list(slot, row.list);
    if (row.bar.steps) give_bar(slot, row.bar);
    if (row.field.max) {
        gui.field_visible[slot] = row.field.visible;
        gui.field_max[slot] = row.field.max;
        gui.field_font[slot] = row.field.font;
    }
    gui.active[slot] = 1;
    return slot;
}

void build_slots(std::span<const SlotRow> rows, int x, int y)
{
    for (const SlotRow& row : rows)
        build_slot(row, x, y);
}

Origin fitted_origin(int x, int y, int w, int h)
{
    // A window's border takes the column x + w and the row y + h.
    return {std::max(0, std::min(x, logical_w - 1 - w)), std::max(0, std::min(y, logical_h - 1 - h))};
}

Origin window_origin(const MenuLayout& screen)
{
    if (screen.row >= 0 && screen.row < WINDOW_ROWS) {
        const WindowPos stored = menus.window_pos[screen.row];
        if (stored.x != -1 || stored.y != -1) return {stored.x, stored.y};
    }
    return fitted_origin(screen.x, screen.y, screen.w, screen.h);
}

void gui_window(int x, int y, int w, int h, int slot_count)
{
    gui_reset_slot(0);
    place_slot(0, x, y, w, h);
    gui.kind[0] = KIND_WINDOW;
    gui.colour[0] = menu_scheme.scheme_background;
    gui.slot_count[0] = slot_count;
    gui.active[0] = 1;
}

void gui_title(int x, int y, int w, int text_id)
{
    fill_standard(1, KIND_TITLE, x, y, w, menu_scheme.scheme_shadow, text_id);
    gui.left_action[1] = ACT_DRAG;
    gui.tooltip[1] = TIP_DRAG_MENU;
    gui.active[1] = 1;
}

void gui_button(int slot, int x, int y, int colour, int text_id)
{
    fill_standard(slot, KIND_BUTTON, x, y, standard_button_w, colour, text_id);
    gui.active[slot] = 1;
}

void gui_caption(int slot, int x, int y, int w, int text_id)
{
    fill_standard(slot, KIND_BUTTON, x, y, w, menu_scheme.scheme_border, text_id);
    gui.active[slot] = 1;
}

void gui_slider(int slot, int x, int y, int w, int steps)
{
    fill_standard(slot, KIND_PANEL, x, y, w, menu_scheme.scheme_background, TEXT_NONE);
    give_bar(slot, {.steps = steps, .wheel = 10, .horizontal = true});
    gui.active[slot] = 1;
}

void set_list_texts(int slot, int first, int count)
{
    auto& rows = gui.list_items[slot];
    for (int i = 0; i < max_list_items; ++i)
        rows[i] = i < count ? first + i : 0;
}

void set_field_text(int slot, const char* text)
{
    const std::size_t limit = static_cast<std::size_t>(std::clamp(int(gui.field_max[slot]), 0, field_bytes - 1));
    const std::size_t length = std::min(std::strlen(text), limit);
    auto& bytes = gui.field_text[slot];
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = i < length ? text[i] : '\0';
    gui.field_caret[slot] = static_cast<int>(length);
    gui.field_scroll[slot] = 0;
}

FieldText field_text_of(int slot)
{
    FieldText text{};
    std::ranges::copy(gui.field_text[slot], text.begin());
    text.back() = 0;
    return text;
}

int field_number(int slot)
{
    constexpr long highest = 999999999;
    return static_cast<int>(std::clamp(std::strtol(field_text_of(slot).data(), nullptr, 10), -highest, highest));
}

void bind_slider(int slot, Shared<int>& word)
{
    gui.scroll_value[slot] = std::clamp<int>(word, gui.scroll_min[slot], gui.scroll_max[slot] - 1);
    gui.scroll_show[slot] = &gui.scroll_value[slot];
    gui.scroll_bind[slot] = &word;
    gui.scroll_bind_on[slot] = 1;
}

int fill_colour(int role)
{
    switch (role) {
    case FILL_BORDER:
        return menu_scheme.scheme_border;
    case FILL_SHADOW:
        return menu_scheme.scheme_shadow;
    case FILL_HIGHLIGHT_FORE:
        return menu_scheme.scheme_highlight_fore;
    case FILL_HIGHLIGHT_BACK:
        return menu_scheme.scheme_highlight_back;
    case FILL_LIGHT_GREY:
        return fixed_colours.light_grey;
    case FILL_BLACK:
        return fixed_colours.black;
    default:
        return menu_scheme.scheme_background;
    }
}

} // namespace kelu
