// SPDX-License-Identifier: MIT
// A palette whose colours all differ, and a font of cells of 3 x 4 pixels in the form of the font pictures.
#pragma once

#include "gui/text.h"
#include <map>
#include <string>
#include <vector>

namespace kelu::test {

/// Index i is a colour of its own, 0 is black; makes it Allegro's palette.
inline void set_test_palette()
{
    static PALETTE palette;
    for (int i = 0; i < PAL_SIZE; ++i) {
        palette[i] = {};
        palette[i].r = static_cast<unsigned char>(i & 15);
        palette[i].g = static_cast<unsigned char>(i >> 4);
        palette[i].b = static_cast<unsigned char>(i == 0 ? 0 : 40);
    }
    ::set_palette(palette);
}

/// Rows of a glyph: '#' the first marker, '+' the second, '.' nothing.
using GlyphRows = std::vector<std::string>;

/// A font picture with these glyphs, each 4 pixels of advance; "g" hangs one line lower.
inline Bitmap font_picture(const std::map<char, GlyphRows>& glyphs)
{
    Bitmap picture(320, 200);
    const int header[] = {3, 4, 1, 2};
    for (int i = 0; i < 4; ++i)
        row(picture, 0)[i] = palette_color[header[i]];
    for (int i = 0; i < marker_count; ++i)
        row(picture, 199)[i] = palette_color[first_marker + i];
    int cell = 0;
    for (const auto& [code, rows] : glyphs) {
        ++cell;
        const int x = cell % 80 * 4;
        const int y = cell / 80 * 5;
        row(picture, y)[x] = palette_color[static_cast<int>(code)];
        row(picture, y)[x + 1] = palette_color[code == 'g' ? 1 : 0];
        row(picture, y)[x + 2] = palette_color[4];
        for (std::size_t j = 0; j < rows.size(); ++j) {
            for (std::size_t i = 0; i < rows[j].size(); ++i) {
                if (rows[j][i] != '.')
                    row(picture, y + 1 + static_cast<int>(j))[x + 1 + static_cast<int>(i)] =
                        palette_color[first_marker + (rows[j][i] == '+' ? 1 : 0)];
            }
        }
    }
    return picture;
}

} // namespace kelu::test
