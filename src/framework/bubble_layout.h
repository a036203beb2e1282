// SPDX-License-Identifier: MIT
// Layout of a speech bubble's text: which characters it holds, in which colours, and where its lines end.
#pragma once

#include "runtime/bubble_table.h"
#include <string_view>

namespace kelu {

constexpr int bubble_character_w = 4; ///< advance of a character, pixels
constexpr int bubble_line_h = 7;      ///< from line to line, pixels

/// Reads a text into a blank row: characters, colours, line ends, width and height. "|cNN" sets the colour set of
/// what follows. A text that begins with a back quote is laid out by hand: every word is a line, and "|hAB" sets
/// mark A to B. Any other is wrapped into 10 to 25 columns, at least 3 lines, and "^" forces a line end. Characters
/// beyond the row's 1499 are dropped.
void lay_out_bubble(Bubble& bubble, std::string_view text);

/// A character's place in the text of a bubble, in characters and lines.
struct BubblePlace {
    int column = 0, line = 0;
};
/// Fills the places of all characters and returns their number. Blanks at a line's end are behind it.
int place_bubble_text(const Bubble& bubble, std::array<BubblePlace, bubble_text_size>& places);

} // namespace kelu
