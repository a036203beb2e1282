// SPDX-License-Identifier: MIT
// Draws the assets as PNGs for people, to look at while they are edited.
//
//   contact_sheets ASSETS OUT    palette.png, fonts.png, gui_sheet.png, tips.png, logo.png
#include "imagefile/png.h"
#include "platform/host.h"
#include "resource_pictures.h"
#include "runtime/pixels.h"
#include "runtime/sheets.h"
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

using namespace kelu;
using namespace kelu::tools;

constexpr int panel_grey = pack_rgb(158, 158, 158), border_grey = pack_rgb(100, 100, 100);
constexpr int button_grey = pack_rgb(219, 219, 219);
constexpr int shadow_grey = pack_rgb(58, 58, 58), water = pack_rgb(60, 90, 120);

void save(const std::string& name, const Bitmap& picture)
{
    if (save_png(name.c_str(), picture) == 0) return;
    std::fprintf(stderr, "can't write %s\n", name.c_str());
    std::exit(1);
}

void save_enlarged(const std::string& name, BITMAP* picture, int factor)
{
    Bitmap large(picture->w * factor, picture->h * factor);
    stretch_blit(picture, large, 0, 0, picture->w, picture->h, 0, 0, large.width(), large.height());
    save(name, large);
}

Bitmap palette_sheet(const Palette& palette)
{
    constexpr int swatch = 24;
    Bitmap sheet(16 * swatch, 16 * swatch);
    for (int i = 0; i < 256; ++i)
        rectfill(sheet, i % 16 * swatch, i / 16 * swatch, i % 16 * swatch + swatch - 1, i / 16 * swatch + swatch - 1,
                 palette[static_cast<std::size_t>(i)]);
    return sheet;
}

/// How a line of sample text is drawn: its two tones, the colour below and whether letters have an outline.
struct TextStyle {
    int lit, shaded, below;
    bool outlined;
};
constexpr TextStyle text_styles[] = {
    {0, 0, panel_grey, false},
    {button_grey, button_grey, shadow_grey, false},
    {0xfac20c, 0xce9d00, water, true},
    {0xa1fa48, 0x65ce00, water, true},
};
constexpr const char* sample_lines[] = {
    "\x1a \x1b \x1c \x1d \x1e  THE QUICK BROWN FOX JUMPS OVER THE LAZY DOG",
    "Sphinx of black quartz, judge my vow; pack my box (again)!",
    "0O 1Il 5S 8B 2Z 6G 0123456789 #$%&*+-=/\\<>[]{}|^_~`@?:\"'",
    "MOUSE > 123.45  PIXEL > 319.239  FRAME > 07",
};

void draw_letters(BITMAP* sheet, const TextFont& font, int x, int y, const char* text, const TextStyle& style)
{
    const auto each_pixel = [&](auto&& paint) {
        int pen = x;
        for (const char* c = text; *c; ++c) {
            const auto glyph =
                std::find_if(font.glyphs.begin(), font.glyphs.end(), [c](const TextGlyph& g) { return g.code == *c; });
            if (glyph == font.glyphs.end()) continue;
            for (std::size_t j = 0; j < glyph->rows.size(); ++j)
                for (std::size_t i = 0; i < glyph->rows[j].size(); ++i)
                    if (glyph->rows[j][i] != '.')
                        paint(pen + static_cast<int>(i), y + glyph->drop + static_cast<int>(j),
                              glyph->rows[j][i] == '#' ? style.lit : style.shaded);
            pen += glyph->advance;
        }
    };
    if (style.outlined)
        each_pixel([sheet](int px, int py, int) {
            vline(sheet, px, py - 1, py + 1, pack_rgb(12, 12, 16));
            hline(sheet, px - 1, py, px + 1, pack_rgb(12, 12, 16));
        });
    each_pixel([sheet](int px, int py, int color) { putpixel(sheet, px, py, color); });
}

Bitmap font_sheet(const TextFont& wide, const TextFont& narrow)
{
    constexpr int pitch = 11, w = 380;
    constexpr int lines = static_cast<int>(std::size(sample_lines)) * static_cast<int>(std::size(text_styles)) * 2;
    Bitmap sheet(w, lines * pitch + 4, panel_grey);
    int y = 2;
    for (const TextFont* font : {&wide, &narrow})
        for (const TextStyle& style : text_styles)
            for (const char* line : sample_lines) {
                rectfill(sheet, 0, y, w - 1, y + pitch - 1, style.below);
                draw_letters(sheet, *font, 4, y + 3, line, style);
                y += pitch;
            }
    return sheet;
}

/// The tips as the tip menu shows them.
Bitmap tip_menu_sheet(BITMAP* tips, int tip_count)
{
    constexpr int button_w = 21, button_h = 19, pitch_x = 22, pitch_y = 20;
    Bitmap sheet(tips_per_row * pitch_x + 3, 3 * pitch_y + 3, panel_grey);
    for (int t = 0; t < tip_count; ++t) {
        const int x = 2 + t % tips_per_row * pitch_x, y = 2 + t / tips_per_row * pitch_y;
        rectfill(sheet, x, y, x + button_w - 1, y + button_h - 1, button_grey);
        rect(sheet, x, y, x + button_w - 1, y + button_h - 1, border_grey);
        blit(tips, sheet, t % tips_per_row * tip_cell_w, t / tips_per_row * tip_cell_h, x + 2, y + 2, tip_cell_w,
             tip_cell_h);
    }
    return sheet;
}

/// The GUI sheet in the default scheme's tones, near enough for the eye.
Bitmap gui_pieces_sheet(TextPicture master)
{
    constexpr std::pair<char, int> tones[] = {{'s', 0x3a3a3a}, {'S', 0x737373}, {'b', 0x646464}, {'B', 0x919191},
                                              {'g', 0x9e9e9e}, {'m', 0x808080}, {'M', 0xa6a6a6}, {'H', 0xff3c3c}};
    for (const auto& [letter, tone] : tones)
        if (master.colors.contains(letter)) master.colors[letter] = tone;
    for (auto& [letter, color] : master.colors)
        if (color == clear_pixel) color = panel_grey;
    return draw_picture(master);
}

void draw_sheets(const std::string& assets, const std::string& out)
{
    std::filesystem::create_directories(out);
    save(out + "/palette.png", palette_sheet(read_palette(assets + "/palette.txt")));
    save_enlarged(out + "/fonts.png", font_sheet(read_font(assets + "/font5.txt"), read_font(assets + "/font4.txt")),
                  3);
    save_enlarged(out + "/gui_sheet.png", gui_pieces_sheet(read_picture(assets + "/gui_sheet.txt")), 8);
    const auto tips = read_tips(assets + "/tips.txt");
    save_enlarged(out + "/tips.png", tip_menu_sheet(draw_tips(tips), static_cast<int>(tips.size())), 4);
    save_enlarged(out + "/logo.png", draw_picture(read_picture(assets + "/logo.txt")), 5);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: contact_sheets ASSETS OUT\n");
        return 2;
    }
    if (!platform::headless_host.start()) return 1;
    draw_sheets(argv[1], argv[2]);
    return 0;
}
