// SPDX-License-Identifier: MIT
// One painter a kind, or a family of kinds. Each draws its slot into the canvas and may read any state. Main thread.
#pragma once

namespace kelu {

/// Colours of the scheme's roles as a look names them: the live scheme's, or those of the scheme being edited.
enum LookFill : int {
    LOOK_COLOUR, ///< the slot's own colour
    LOOK_SHADOW,
    LOOK_HIGHLIGHT_BACK,
    LOOK_EDITED_BACKGROUND,
    LOOK_EDITED_BORDER,
    LOOK_EDITED_SHADOW,
    LOOK_EDITED_HIGHLIGHT_BACK,
    LOOK_SAME ///< hovered as at rest
};

/// The colours of a labelled panel, at rest and under the pointer: a LookFill and a TextSet each.
struct Look {
    int fill = LOOK_COLOUR;
    int text = 0;
    int hover_fill = LOOK_SAME;
    int hover_text = 0;
    bool at_left = false; ///< label at the left, else in the middle
    int opacity = 0;      ///< of the label, 0: solid
};

// labels
void draw_label(int slot, const Look& look);
void draw_hotkey(int slot, const Look& look);
void draw_font_name(int slot, const Look& look);
void draw_caption(int slot, const Look& look);
void draw_ptr_label(int slot, const Look& look);
void draw_frame_count(int slot, const Look& look);
void draw_number(int slot, const Look& look);

// panels
void draw_plain_panel(int slot, const Look& look);
void draw_window(int slot, const Look& look);
void draw_failure_panel(int slot, const Look& look);
void draw_progress(int slot, const Look& look);
void draw_arrow_button(int slot, const Look& look);

// swatches
void draw_color_picking(int slot, const Look& look);
void draw_color_cell(int slot, const Look& look);
void draw_mask_swatch(int slot, const Look& look);
void draw_brush_swatch(int slot, const Look& look);
void draw_spectrum(int slot, const Look& look);
void draw_variance(int slot, const Look& look);

// planes
void draw_plane(int slot, const Look& look);

// lists
void draw_list(int slot, const Look& look);
void draw_file_list(int slot, const Look& look);

// field_paint
void draw_field(int slot, const Look& look);

// pages
void draw_about(int slot, const Look& look);
void draw_tool_text(int slot, const Look& look);
void draw_help_page(int slot, const Look& look);

// tips_paint
void draw_tip(int slot, const Look& look);
void draw_custom_tip(int slot, const Look& look);
void draw_tip_button(int slot, const Look& look);

// previews
void draw_preview(int slot, const Look& look);
void draw_quick_pan(int slot, const Look& look);
void draw_frame_nail(int slot, const Look& look);
void draw_sheet_preview(int slot, const Look& look);
void draw_zoom_preview(int slot, const Look& look);

/// True for a look in the colours of the scheme that is being edited.
bool look_edited(const Look& look);
/// Colour of a LookFill on that slot.
int look_colour(int slot, int fill);
/// Border that belongs to a look: the scheme's, or the edited scheme's.
int look_border(const Look& look);
/// The scroll bar of a slot.
void draw_scroll_bar(int slot);
/// Counts the lines of a help page whose count in `items` is -1, and gives it the bar that they need.
void give_page_bar(int slot, const char* page);
/// Bands the row under the pointer; rows of texts from `scroll_value` on.
void draw_row_highlight(int slot, int colour);
void draw_list_rows(int slot, bool centred);

} // namespace kelu
