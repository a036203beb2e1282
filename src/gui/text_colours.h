// SPDX-License-Identifier: MIT
// Colour sets of the text engine: what replaces the marker colours of the glyphs.
#pragma once

#include <array>

namespace kelu {

constexpr int text_set_count = 99; ///< colour sets 0 to 98
constexpr int marker_count = 8;    ///< marker colours of a glyph
constexpr int first_marker = 128;  ///< palette index of marker 0
constexpr int marker_stays = -1;   ///< entry of a set that leaves its marker as it is

/// Sets that screens name. 37 to 41 and 43 follow the colour scheme, 47 to 53 the scheme being edited.
enum TextSet : int {
    SET_GLYPH = 0,           ///< the glyph's own colours
    SET_BLACK = 5,           ///< on grounds that no scheme changes
    SET_TOOLTIP = 21,        ///< greys: tooltips, the readout's words
    SET_MESSAGE = 24,        ///< orange: flashed messages, the readout's numbers
    SET_FRAME = 32,          ///< green: frame numbers
    SET_FONT_NAME = 34,      ///< red
    SET_WARNING = 36,        ///< orange: keys that collide
    SET_BUTTON = 37,         ///< text on buttons
    SET_LIGHT_ALT = 38,      ///< titles, lit buttons
    SET_SELECTED = 39,       ///< the chosen file, numbers
    SET_HIGHLIGHT = 40,      ///< captions, help
    SET_LIGHT = 41,          ///< fields, lists
    SET_ONION = 42,          ///< orange
    SET_FOLDER = 43,         ///< SET_LIGHT_ALT, darkened
    SET_ALPHA = 44,          ///< blue
    SET_PREVIEW_BUTTON = 47, ///< the six again for the scheme being edited
    SET_PREVIEW_LIGHT_ALT = 48,
    SET_PREVIEW_SELECTED = 49,
    SET_PREVIEW_HIGHLIGHT = 50,
    SET_PREVIEW_LIGHT = 51,
    SET_PREVIEW_FOLDER = 53,
    SET_SLIDER_TAG = 54 ///< number tag of a slider
};

using ColourSet = std::array<int, marker_count>; ///< packed colours, or `marker_stays`

/// The sets. Owner: gui/text_colours and gui/scheme. Main thread.
inline std::array<ColourSet, text_set_count> text_colours;

/// Fills the sets with their start values.
void init_text_colours();
/// Gives both letter tones of a set one colour.
void set_letter_colour(int set, int colour);

} // namespace kelu
