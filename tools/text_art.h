// SPDX-License-Identifier: MIT
// Reading of the pictures in assets/, which are texts: a palette, pictures of one letter a pixel, fonts and brush tips.
//
// In all of them ';' starts a comment that runs to the end of the line, and empty lines count for nothing. A mistake
// ends the tool with the file, the line and what is wrong.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

namespace kelu::tools {

/// palette.txt: 256 colours as 0x00RRGGBB, all different once they are rounded down to 6 bits a channel, none magenta.
using Palette = std::array<int, 256>;
Palette read_palette(const std::string& file);

/// A picture of one letter a pixel: "size W H", then a line "colour LETTER RRGGBB" for each letter, then H rows.
struct TextPicture {
    int w = 0, h = 0;
    std::map<char, int> colors;    ///< 0x00RRGGBB by letter; a letter declared "clear" has `clear_pixel`
    std::vector<std::string> rows; ///< h rows of w letters, all of them declared
};
constexpr int clear_pixel = -1;
TextPicture read_picture(const std::string& file);

/// A bitmap font: "cell W H", "shadow DX DY", then the glyphs.
struct TextGlyph {
    int code = 0, advance = 0, drop = 0;
    std::vector<std::string> rows; ///< of the letters '#', '+' and '.', at most the cell's size
};
struct TextFont {
    int cell_w = 0, cell_h = 0, shadow_dx = 0, shadow_dy = 0;
    std::vector<TextGlyph> glyphs;
};
TextFont read_font(const std::string& file);

/// Brush tips: 36 of 17 x 15 letters, '#' at full strength, '9' to '1' from strong to faint, '.' none.
using TextTip = std::vector<std::string>;
std::vector<TextTip> read_tips(const std::string& file);

} // namespace kelu::tools
