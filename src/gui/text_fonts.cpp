// SPDX-License-Identifier: MIT
// Fonts from pictures. A picture is a grid of cells one pixel apart; the first row of a cell names its character, and
// the cell at the grid's origin holds the sizes.
#include "gui/text.h"

#include "runtime/pixels.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int picture_w = 320; // what the grid is counted by
constexpr int picture_h = 200;
constexpr int strip_cells = 255;
constexpr int highest_code = 253;
constexpr int usual_advance = 8;

int number_at(BITMAP* picture, int x, int y)
{
    return in_bitmap(picture, x, y) ? palette_index(row(picture, y)[x]) : 0;
}

/// Sizes and ramp of the first picture; an empty strip.
bool start_font(Font& font, BITMAP* picture)
{
    font = {};
    font.advance.fill(usual_advance);
    font.cell_w = number_at(picture, 0, 0);
    font.cell_h = number_at(picture, 1, 0);
    font.shadow_dx = number_at(picture, 2, 0);
    font.shadow_dy = number_at(picture, 3, 0);
    for (std::size_t i = 0; i < font.ramp.size(); ++i)
        font.ramp[i] = number_at(picture, static_cast<int>(i), picture->h - 1);
    font.glyph_sheet = Bitmap(font.cell_w * strip_cells, font.cell_h, mask_magenta);
    return static_cast<bool>(font.glyph_sheet);
}

/// Takes the cells of a picture into the strip; `first_cell` are the cells of the pictures before it.
void take_cells(Font& font, BITMAP* picture, int first_cell)
{
    const int pitch_x = font.cell_w + 1;
    const int pitch_y = font.cell_h + 1;
    const int columns = picture_w / pitch_x;
    const int cells = columns * (picture_h / pitch_y);
    for (int i = 1; i < cells; ++i) {
        const int x = i % columns * pitch_x;
        const int y = i / columns * pitch_y;
        const int place = font.cell_w * (first_cell + i);
        if (place + font.cell_w > font.glyph_sheet.width()) return; // the strip is full
        blit(picture, font.glyph_sheet, x + 1, y + 1, place, 0, font.cell_w, font.cell_h);
        const int code = number_at(picture, x, y);
        if (code > highest_code) continue;
        font.glyph_x[code] = place;
        font.glyph_y[code] = number_at(picture, x + 1, y);
        font.advance[code] = number_at(picture, x + 2, y);
    }
}

} // namespace

int palette_index(int colour)
{
    const auto* found = std::find(palette_color, palette_color + PAL_SIZE, colour);
    return found == palette_color + PAL_SIZE ? 0 : static_cast<int>(found - palette_color);
}

bool load_font(int slot, std::span<BITMAP* const> pictures)
{
    if (slot < 0 || slot >= FONT_SLOT_COUNT) return false;
    Font& font = font_table[slot];
    int first_cell = 0;
    for (BITMAP* picture : pictures) {
        mask_black(picture);
        if (picture == pictures.front() && !start_font(font, picture)) return false;
        take_cells(font, picture, first_cell);
        first_cell += picture_w / (font.cell_w + 1) * (picture_h / (font.cell_h + 1));
    }
    return !pictures.empty();
}

} // namespace kelu
