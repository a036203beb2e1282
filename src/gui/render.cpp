// SPDX-License-Identifier: MIT
// The table of kinds, and the walk over the slots.
#include "gui/render.h"

#include "base/run_state.h"
#include "gui/kinds.h"
#include "gui/menus.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/slots.h"
#include "gui/text_colours.h"
#include <array>
#include <utility>

namespace kelu {
namespace {

struct KindRow {
    int kind = KIND_NONE;
    void (*draw)(int slot, const Look& look) = nullptr;
    Look look{};
};

constexpr KindRow kind_rows[] = {
    // kind                draw                 at rest                        under the pointer
    {KIND_PLAIN_LABEL, draw_label, {.text = SET_BUTTON, .at_left = true}},
    {KIND_PTR_LABEL, draw_ptr_label},
    {KIND_ABOUT, draw_about},
    {KIND_TOOL_TEXT, draw_tool_text, {.text = SET_HIGHLIGHT}},
    {KIND_CAPTION, draw_caption},
    {KIND_COLOR_PICKING, draw_color_picking},
    {KIND_COLOR_CELL, draw_color_cell},
    {KIND_MASK_SWATCH, draw_mask_swatch},
    {KIND_BRUSH_SWATCH, draw_brush_swatch},
    {KIND_SPECTRUM, draw_spectrum},
    {KIND_PANEL, draw_plain_panel},
    {KIND_TITLE, draw_label, {.text = SET_LIGHT_ALT}},
    {KIND_BUTTON, draw_label, {.text = SET_BUTTON}},
    {KIND_BUTTON_LIT, draw_label, {LOOK_HIGHLIGHT_BACK, SET_LIGHT_ALT}},
    {KIND_PUSH, draw_label, {LOOK_COLOUR, SET_BUTTON, LOOK_HIGHLIGHT_BACK, SET_LIGHT_ALT}},
    {KIND_PUSH_DARK, draw_label, {LOOK_COLOUR, SET_HIGHLIGHT, LOOK_SHADOW, SET_LIGHT}},
    {KIND_TEXT_FIELD, draw_field, {.text = SET_LIGHT}},
    {KIND_FILE_LIST, draw_file_list},
    {KIND_LIST, draw_list},
    {KIND_PREVIEW, draw_preview},
    {KIND_QUICK_PAN, draw_quick_pan},
    {KIND_FRAME_NAIL, draw_frame_nail},
    {KIND_SHEET_PREVIEW, draw_sheet_preview},
    {KIND_TIP, draw_tip},
    {KIND_CUSTOM_TIP, draw_custom_tip},
    {KIND_TIP_BUTTON, draw_tip_button},
    {KIND_VARIANCE_HUE, draw_variance},
    {KIND_VARIANCE_2, draw_variance},
    {KIND_VARIANCE_3, draw_variance},
    {KIND_VGA_PLANE, draw_plane},
    {KIND_RGB_PLANE, draw_plane},
    {KIND_HLS_PLANE, draw_plane},
    {KIND_HSV_PLANE, draw_plane},
    {KIND_HOTKEY, draw_hotkey, {LOOK_COLOUR, SET_BUTTON, LOOK_HIGHLIGHT_BACK, SET_LIGHT_ALT}},
    {KIND_FRAME_COUNT, draw_frame_count, {.text = SET_SELECTED}},
    {KIND_NUMBER, draw_number, {.text = SET_SELECTED}},
    {KIND_GHOST_BUTTON, draw_label, {LOOK_COLOUR, SET_BUTTON, LOOK_HIGHLIGHT_BACK, SET_LIGHT_ALT, false, 48}},
    {KIND_FONT_NAME, draw_font_name, {LOOK_COLOUR, SET_BUTTON, LOOK_HIGHLIGHT_BACK, SET_FONT_NAME}},
    {KIND_PROGRESS, draw_progress},
    {KIND_RADIO_ON, draw_label, {LOOK_HIGHLIGHT_BACK, SET_LIGHT_ALT}},
    {KIND_RADIO_OFF, draw_label, {LOOK_COLOUR, SET_HIGHLIGHT, LOOK_SHADOW, SET_TOOLTIP}},
    {KIND_MENU_ENTRY, draw_label, {LOOK_COLOUR, SET_BUTTON, LOOK_HIGHLIGHT_BACK, SET_LIGHT_ALT, true}},
    {KIND_HELP_PAGE, draw_help_page, {.text = SET_HIGHLIGHT}},
    {KIND_ZOOM_PREVIEW, draw_zoom_preview},
    {KIND_ARROW_BUTTON, draw_arrow_button},
    {KIND_SCHEME_PANEL, draw_plain_panel, {LOOK_EDITED_BACKGROUND}},
    {KIND_SCHEME_TITLE, draw_label, {LOOK_EDITED_SHADOW, SET_PREVIEW_LIGHT_ALT}},
    {KIND_SCHEME_LIT, draw_label, {LOOK_EDITED_BORDER, SET_PREVIEW_BUTTON}},
    {KIND_SCHEME_BUTTON,
     draw_label,
     {LOOK_EDITED_BACKGROUND, SET_PREVIEW_BUTTON, LOOK_EDITED_HIGHLIGHT_BACK, SET_PREVIEW_LIGHT_ALT}},
    {KIND_SCHEME_ALT,
     draw_label,
     {LOOK_EDITED_BACKGROUND, SET_PREVIEW_HIGHLIGHT, LOOK_EDITED_SHADOW, SET_PREVIEW_LIGHT}},
    {KIND_SCHEME_FIELD, draw_field, {LOOK_EDITED_BORDER, SET_PREVIEW_LIGHT}},
    {KIND_SCHEME_LIST, draw_list, {LOOK_EDITED_BORDER}},
    {KIND_FAILURE_PANEL, draw_failure_panel},
    {KIND_WINDOW, draw_window},
    {KIND_COLOR_BOX, draw_plain_panel},
};

void draw_nothing(int, const Look&) {}

/// Spread out: a kind without a row is a hit area.
constexpr auto kinds = [] {
    std::array<KindRow, KIND_COUNT> all{};
    for (KindRow& row : all)
        row.draw = draw_nothing;
    for (const KindRow& row : kind_rows)
        all[row.kind] = row;
    return all;
}();

} // namespace

void gui_render() { gui_render_to(screen_state.back_buffer); }

void gui_render_to(BITMAP* target)
{
    BITMAP* before = std::exchange(gui_canvas, target);
    for (int slot = 0; slot < gui_slots; ++slot) {
        if (!slot_live(slot)) continue;
        const int kind = gui.kind[slot];
        if (kind >= 0 && kind < KIND_COUNT) {
            const KindRow& row = kinds[kind];
            row.draw(slot, row.look);
        }
        if (gui.scroll_on[slot]) draw_scroll_bar(slot);
    }
    gui_canvas = before;
}

void freeze_menu(BITMAP* bitmap)
{
    clear_to_color(bitmap, mask_magenta);
    gui_render_to(bitmap);
    menus.ghost_rect = {gui.x[0], gui.y[0], gui.w[0] + 3, gui.h[0] + 1};
}

} // namespace kelu
