// SPDX-License-Identifier: MIT
// TrueType files from outlines: the tables that a font needs to be shown, and no hints.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelu::tools {

/// A point of an outline, in units of the font, y up from the baseline.
struct OutlinePoint {
    int x = 0, y = 0;
};
/// A closed polygon. Ink lies to the right of its way round; where polygons of one sense overlap they add up.
using Contour = std::vector<OutlinePoint>;

struct OutlineGlyph {
    int code = 0;    ///< character, 0 for the sign of a missing one; each once
    int advance = 0; ///< units, 0 to 65535
    std::vector<Contour> contours;
};

struct OutlineFont {
    std::string family;               ///< ASCII
    int units_per_em = 0;             ///< 16 to 16384
    int ascender = 0, descender = 0;  ///< of a line, units; the descender is negative
    std::vector<OutlineGlyph> glyphs; ///< sorted by code; the first is that of code 0
};

/// The whole file, with the tables that OpenType asks of a font of outlines. All coordinates lie within 32767 of 0.
std::vector<uint8_t> write_true_type(const OutlineFont& font);

} // namespace kelu::tools
