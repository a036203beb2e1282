// SPDX-License-Identifier: MIT
// Kinds that are a panel with a label.
#include "gui/key_labels.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "gui/strings.h"
#include "gui/text.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/text_settings.h"
#include "runtime/view.h"
#include <array>
#include <cstdio>
#include <string>

namespace kelu {
namespace {

constexpr int number_blank = 1000; // from here on KIND_NUMBER shows nothing
constexpr std::size_t longest_font_name = 21;

/// Panel and label of a look. A slot in the warning's red shows a collision, and keeps its text legible on it.
void draw_labelled(int slot, const Look& look, const char* text)
{
    const bool hovered = look.hover_fill != LOOK_SAME && look_hovered(slot);
    const bool warns = look.fill == LOOK_COLOUR && look.text == SET_BUTTON && gui.colour[slot] == warning_red;
    draw_panel(slot, look_colour(slot, hovered ? look.hover_fill : look.fill), look_border(look), solid_opacity);
    const int set = hovered ? look.hover_text : warns ? int(SET_WARNING) : look.text;
    if (look.at_left) {
        draw_at_left(slot, text, set);
    } else {
        draw_centred(slot, text, set, look.opacity);
    }
}

/// A label in the slot's colour set. Where windows have no ground a dark one brings its own, or it would be lost on the
/// frame.
void draw_without_panel(int slot, const char* text)
{
    const bool dark = gui.colour[slot] == SET_BUTTON || gui.colour[slot] == SET_HIGHLIGHT;
    if (dark && preferences.backless_mode != 0) draw_plate(slot, text, menu_scheme.scheme_background);
    draw_centred(slot, text, gui.colour[slot]);
}

} // namespace

int look_colour(int slot, int fill)
{
    const SchemeColours& edited = menu_scheme.scheme;
    switch (fill) {
    case LOOK_SHADOW:
        return menu_scheme.scheme_shadow;
    case LOOK_HIGHLIGHT_BACK:
        return menu_scheme.scheme_highlight_back;
    case LOOK_EDITED_BACKGROUND:
        return edited[SCHEME_BACKGROUND];
    case LOOK_EDITED_BORDER:
        return edited[SCHEME_BORDER];
    case LOOK_EDITED_SHADOW:
        return edited[SCHEME_SHADOW];
    case LOOK_EDITED_HIGHLIGHT_BACK:
        return edited[SCHEME_HIGHLIGHT_BACK];
    default:
        return gui.colour[slot];
    }
}

bool look_edited(const Look& look)
{
    return look.fill >= LOOK_EDITED_BACKGROUND && look.fill <= LOOK_EDITED_HIGHLIGHT_BACK;
}

int look_border(const Look& look)
{
    return look_edited(look) ? menu_scheme.scheme[SCHEME_BORDER] : menu_scheme.scheme_border;
}

void draw_label(int slot, const Look& look) { draw_labelled(slot, look, ui_strings[gui.text_id[slot]]); }

void draw_hotkey(int slot, const Look& look) { draw_labelled(slot, look, key_label(gui.text_id[slot]).c_str()); }

void draw_font_name(int slot, const Look& look)
{
    std::string name = text_settings.font_file;
    if (name.size() > longest_font_name) name = name.substr(0, longest_font_name) + "...";
    draw_labelled(slot, look, name.c_str());
}

void draw_caption(int slot, const Look&) { draw_without_panel(slot, ui_strings[gui.text_id[slot]]); }

void draw_ptr_label(int slot, const Look&)
{
    if (const char* text = gui.ptr[slot]) draw_without_panel(slot, text);
}

void draw_frame_count(int slot, const Look& look)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%02d / %d", int(store.frame_count), max_frames);
    draw_own_panel(slot);
    draw_at_left(slot, text.data(), look.text);
}

void draw_number(int slot, const Look& look)
{
    draw_own_panel(slot);
    const int number = gui.list_items[slot][0];
    if (number >= number_blank) return;
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%03d", number);
    set_plain_text(FONT_WIDE, look.text);
    draw_text(gui_canvas, gui.x[slot] + (gui.w[slot] - text_width(text.data())) / 2, gui.y[slot] + 2, text.data());
}

} // namespace kelu
