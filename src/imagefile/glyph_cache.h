// SPDX-License-Identifier: MIT
// The record of a loaded font, and its glyphs as bytes. For the units of the vector fonts alone.
#pragma once

#include "imagefile/vector_font.h"
#include <array>
#include <cstdint>
#include <ft2build.h>
#include <vector>
#include FT_FREETYPE_H

namespace kelu {

/// One form of a glyph: a byte a pixel, 0 for none.
struct GlyphForm {
    bool exists = false;
    int w = 0, h = 0;
    int left = 0; ///< from the pen to the first column
    int top = 0;  ///< from the baseline up to the first row
    std::vector<uint8_t> pixels;
};

/// A character's glyph. Both forms are made together, on its first use.
struct Glyph {
    bool rendered = false;
    int advance = 0;       ///< pixels, without the font's spacing
    GlyphForm plain;       ///< not 0: ink
    GlyphForm antialiased; ///< 0 to 255
};

struct VectorFont {
    std::vector<uint8_t> file; ///< the face reads it as long as it lives
    FT_Face face = nullptr;
    int size = 0;                  ///< height of a line that was asked for, 0 none
    int nominal_size = 0;          ///< pixels for an em that are set in the face, 0 none
    bool fixed_sizes = false;      ///< the font is made of bitmaps
    int spacing = 0;               ///< extra pixels behind each letter
    std::array<Glyph, 256> glyphs; ///< by character
    std::string language;
    int style = 0; ///< 0 to 2
};

/// The glyph of a character, rendered at the font's present size. What can't be rendered, or is larger than any
/// letter, has an advance at most.
const Glyph& cached_glyph(VectorFont& font, uint8_t character);
/// Forgets all glyphs: the size has changed.
void release_glyphs(VectorFont& font);

} // namespace kelu
