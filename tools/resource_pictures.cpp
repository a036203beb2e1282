// SPDX-License-Identifier: MIT
// Drawing of the resource pictures. Places and sizes are those that the program's readers expect.
#include "resource_pictures.h"

#include "runtime/pixels.h"
#include "runtime/sheets.h"
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace kelu::tools {
namespace {

constexpr int font_picture_w = 320, font_picture_h = 200;
constexpr int first_marker = 128; ///< palette index of the lit tone of letters; the shaded one follows
constexpr int marker_count = 8;

constexpr int gui_sheet_w = 112, gui_sheet_h = 164;
constexpr int gui_pieces_y = 111; ///< first row of the pieces
constexpr int gui_master_x = 60;  ///< first column of the grey master
constexpr int gui_coloured_x = 0; ///< first column of what the scheme recolours

constexpr int tip_picture_w = 206, tip_picture_h = 48;
constexpr int paper_grey = 219; ///< leaves the picture alone, and is the colour of the tip buttons

void set_index(BITMAP* picture, int x, int y, int index)
{
    if (in_bitmap(picture, x, y)) picture->line[y][x] = static_cast<unsigned char>(index);
}

/// The index of a palette colour; a colour that isn't there ends the tool.
int index_of(const Palette& palette, int color)
{
    const auto found = std::find(palette.begin(), palette.end(), color);
    if (found != palette.end()) return static_cast<int>(found - palette.begin());
    std::fprintf(stderr, "colour %06x is not in the palette\n", static_cast<unsigned>(color));
    std::exit(1);
}

/// How strongly a letter of a tip paints, as the grey that the stamps read.
int tip_grey(char letter)
{
    if (letter == '#') return 0;
    return letter == '.' ? paper_grey : 200 - 20 * (letter - '0');
}

void draw_glyph(BITMAP* picture, const TextGlyph& glyph, int x, int y)
{
    set_index(picture, x, y, glyph.code);
    set_index(picture, x + 1, y, glyph.drop);
    set_index(picture, x + 2, y, glyph.advance);
    for (std::size_t j = 0; j < glyph.rows.size(); ++j)
        for (std::size_t i = 0; i < glyph.rows[j].size(); ++i)
            if (const char letter = glyph.rows[j][i]; letter != '.')
                set_index(picture, x + 1 + static_cast<int>(i), y + 1 + static_cast<int>(j),
                          first_marker + (letter == '+'));
}

} // namespace

Bitmap make_indexed(int w, int h)
{
    Bitmap picture(create_bitmap_ex(8, w, h));
    if (picture) clear_to_color(picture, 0);
    return picture;
}

Bitmap draw_palette()
{
    Bitmap picture = make_indexed(16, 16);
    for (int i = 0; i < 256; ++i)
        set_index(picture, i % 16, i / 16, i);
    return picture;
}

Bitmap draw_font(const TextFont& font)
{
    Bitmap picture = make_indexed(font_picture_w, font_picture_h);
    const int header[] = {font.cell_w, font.cell_h, font.shadow_dx, font.shadow_dy};
    for (int i = 0; i < 4; ++i)
        set_index(picture, i, 0, header[i]);
    for (int i = 0; i < marker_count; ++i)
        set_index(picture, i, font_picture_h - 1, first_marker + i);

    // Cell 0 holds the header and is no glyph.
    const int pitch_x = font.cell_w + 1, pitch_y = font.cell_h + 1;
    const int columns = font_picture_w / pitch_x;
    int cell = 1;
    for (const TextGlyph& glyph : font.glyphs) {
        draw_glyph(picture, glyph, cell % columns * pitch_x, cell / columns * pitch_y);
        ++cell;
    }
    return picture;
}

Bitmap draw_gui_sheet(const TextPicture& master, const Palette& palette)
{
    Bitmap sheet = make_indexed(gui_sheet_w, gui_sheet_h);
    for (int y = 0; y < master.h; ++y)
        for (int x = 0; x < master.w; ++x) {
            const int color = master.colors.at(master.rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
            if (color == clear_pixel) continue;
            const int index = index_of(palette, color);
            set_index(sheet, gui_master_x + x, gui_pieces_y + y, index);
            set_index(sheet, gui_coloured_x + x, gui_pieces_y + y, index);
        }
    return sheet;
}

Bitmap draw_tips(const std::vector<TextTip>& tips)
{
    Bitmap sheet(tip_picture_w, tip_picture_h, pack_rgb(255, 255, 255));
    for (int t = 0; t < static_cast<int>(tips.size()); ++t)
        for (int y = 0; y < tip_cell_h; ++y)
            for (int x = 0; x < tip_cell_w; ++x) {
                const TextTip& tip = tips[static_cast<std::size_t>(t)];
                const int grey = tip_grey(tip[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
                row(sheet, t / tips_per_row * tip_cell_h + y)[t % tips_per_row * tip_cell_w + x] =
                    pack_rgb(grey, grey, grey);
            }
    return sheet;
}

Bitmap draw_picture(const TextPicture& picture)
{
    Bitmap drawn(picture.w, picture.h, mask_magenta);
    for (int y = 0; y < picture.h; ++y)
        for (int x = 0; x < picture.w; ++x) {
            const int color = picture.colors.at(picture.rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
            if (color != clear_pixel) row(drawn, y)[x] = color;
        }
    return drawn;
}

Bitmap enlarge(BITMAP* picture, int x, int y, int side, int factor)
{
    Bitmap large(side * factor, side * factor);
    stretch_blit(picture, large, x, y, side, side, 0, 0, side * factor, side * factor);
    return large;
}

} // namespace kelu::tools
