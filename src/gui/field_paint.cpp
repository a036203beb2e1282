// SPDX-License-Identifier: MIT
// Kinds that show the text of a field and its caret.
#include "gui/build.h"
#include "gui/field.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/text.h"
#include "runtime/frame_snapshot.h"
#include <algorithm>
#include <cstring>

namespace kelu {
namespace {

constexpr int character_w = 6; ///< advance of the wide font, in which fields show

void draw_caret(int slot, int colour)
{
    if (gui_logic.gui_key_focus != slot || frame_snapshot.caret == 0) return;
    const int font_slot = std::clamp(int(gui.field_font[slot]), 0, FONT_SLOT_COUNT - 1);
    const Font& font = font_table[font_slot];
    const int x = gui.x[slot] + 2 + (gui.field_caret[slot] - gui.field_scroll[slot]) * font.advance['A'];
    fill_area(x, gui.y[slot] + 1, x, gui.y[slot] + 2 + font.cell_h, colour);
}

/// The ground of a marked text of which `count` characters show.
void draw_mark(int slot, std::size_t count, int colour)
{
    const int x = gui.x[slot] + 2, w = static_cast<int>(count) * character_w;
    fill_area(x, gui.y[slot] + 1, x + w, gui.y[slot] + gui.h[slot] - 2, colour);
}

} // namespace

void draw_field(int slot, const Look& look)
{
    const bool edited = look_edited(look);
    const int fill = gui.field_error[slot] ? menu_scheme.scheme_highlight_fore : look_colour(slot, look.fill);
    draw_panel(slot, fill, look_border(look), solid_opacity);
    const FieldText text = field_text_of(slot);
    const int first = std::clamp(int(gui.field_scroll[slot]), 0, field_bytes - 1);
    const bool marked = gui_proposes_text(slot);
    const std::size_t shown =
        std::min(std::strlen(text.data() + first), static_cast<std::size_t>(gui.field_visible[slot]));
    if (marked) draw_mark(slot, shown, menu_scheme.scheme_background);
    const bool on_red = fill == warning_red || gui.field_error[slot] != 0; // too close to the light text
    draw_characters(gui.x[slot] + 3, gui.y[slot] + 2, text.data() + first, gui.field_visible[slot],
                    marked || on_red ? int(SET_BUTTON) : look.text);
    draw_caret(slot, edited ? menu_scheme.scheme[SCHEME_SHADOW] : menu_scheme.scheme_shadow);
}

} // namespace kelu
