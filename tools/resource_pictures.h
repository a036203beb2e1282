// SPDX-License-Identifier: MIT
// The pictures of the resource files, drawn from the texts of assets/.
#pragma once

#include "base/bitmap.h"
#include "text_art.h"

namespace kelu::tools {

/// A picture of palette indices, 8 bits deep, all 0.
Bitmap make_indexed(int w, int h);

/// Every colour of the palette, as 16 x 16 pixels: the carrier of PALETTE.
Bitmap draw_palette();
/// A font's picture of 320 x 200: its numbers and glyphs as the font loader reads them.
Bitmap draw_font(const TextFont& font);
/// The GUI sheet: the grey master, and the same once more to its left, where the scheme recolours it.
Bitmap draw_gui_sheet(const TextPicture& master, const Palette& palette);
/// The brush tips, 206 x 48 in grey: three rows of twelve cells, white below.
Bitmap draw_tips(const std::vector<TextTip>& tips);
/// A picture in its own colours, 32 bits deep.
Bitmap draw_picture(const TextPicture& picture);
/// A square of `side` pixels at (x, y) of a picture, enlarged `factor` times.
Bitmap enlarge(BITMAP* picture, int x, int y, int side, int factor);

} // namespace kelu::tools
