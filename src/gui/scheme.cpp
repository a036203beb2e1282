// SPDX-License-Identifier: MIT
// A scheme put on: live colours, text sets, the GUI sheet.
#include "gui/scheme.h"

#include "base/run_state.h"
#include "gui/text_colours.h"
#include "runtime/sheets.h"

namespace kelu {
namespace {

constexpr int preview_offset = SET_PREVIEW_BUTTON - SET_BUTTON; // from a set to its twin in the editor's preview

/// Rows 111 to 163 hold arrows, knobs and marks: the grey master in columns 60 to 109, the coloured form 60 to the
/// left.
constexpr int master_top = 111, master_bottom = 163;
constexpr int master_left = 60, master_columns = 50;
/// The caps of a slider's number tag.
constexpr int caps_left = 39, caps_right = 47, caps_top = 126, caps_bottom = 133;
constexpr int light_mix = 75; // of the lit edges, towards white

/// The scheme's text colours into the sets from 37 on, or their twins.
void colour_texts(const SchemeColours& colours, int offset)
{
    const int alt = colours[SCHEME_TEXT_LIGHT_ALT];
    set_letter_colour(SET_BUTTON + offset, colours[SCHEME_TEXT_BUTTON]);
    set_letter_colour(SET_LIGHT_ALT + offset, alt);
    set_letter_colour(SET_SELECTED + offset, colours[SCHEME_TEXT_SELECTED]);
    set_letter_colour(SET_HIGHLIGHT + offset, colours[SCHEME_TEXT_HIGHLIGHT]);
    set_letter_colour(SET_LIGHT + offset, colours[SCHEME_TEXT_LIGHT]);
    set_letter_colour(SET_FOLDER + offset, pack_rgb(red_of(alt) / 2, green_of(alt) / 4, blue_of(alt) / 4));
}

struct MasterColour {
    int red; ///< of the master's pixel
    int colour;
};

} // namespace

void apply_scheme()
{
    const SchemeColours& colours = menu_scheme.scheme;
    menu_scheme.scheme_background = colours[SCHEME_BACKGROUND];
    menu_scheme.scheme_border = colours[SCHEME_BORDER];
    menu_scheme.scheme_shadow = colours[SCHEME_SHADOW];
    menu_scheme.scheme_highlight_fore = colours[SCHEME_HIGHLIGHT_FORE];
    menu_scheme.scheme_highlight_back = colours[SCHEME_HIGHLIGHT_BACK];
    colour_texts(colours, 0);
}

void preview_scheme() { colour_texts(menu_scheme.scheme, preview_offset); }

void recolor_gui_sheet(int background, int border, int shadow, int fill)
{
    const int white = fixed_colours.white;
    const int black = fixed_colours.black;
    const int middle = mix_colors(background, border, 128);
    const MasterColour tones[] = {
        {105, shadow},
        {125, border},
        {153, background},
        {206, mix_colors(shadow, white, light_mix)},
        {226, mix_colors(border, white, light_mix)},
        {48, middle},
        {170, mix_colors(middle, white, light_mix)},
        {255, mix_colors(fill, white, 60)},
    };
    BITMAP* sheet = sheets.gui_sheet;
    const int cap_colour = mix_colors(shadow, black, 100);
    for (int y = master_top; sheet && y <= master_bottom && y < sheet->h; ++y) {
        int* pixels = row(sheet, y);
        for (int x = 0; x < master_columns && x + master_left < sheet->w; ++x) {
            const int master = pixels[x + master_left];
            if (master == mask_magenta) continue;
            for (const MasterColour& tone : tones) {
                if (tone.red == red_of(master)) pixels[x] = tone.colour;
            }
        }
        if (y < caps_top || y > caps_bottom) continue;
        for (int x = caps_left; x <= caps_right && x < sheet->w; ++x) {
            if (pixels[x] != mask_magenta) pixels[x] = cap_colour;
        }
    }
    ColourSet& tag = text_colours[SET_SLIDER_TAG];
    tag[0] = mix_colors(fill, white, 60);
    tag[1] = mix_colors(fill, black, 20);
}

} // namespace kelu
