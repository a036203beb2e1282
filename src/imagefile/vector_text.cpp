// SPDX-License-Identifier: MIT
// Measuring and drawing of text: a pen walks over the cached glyphs.
#include "imagefile/glyph_cache.h"
#include "runtime/pixels.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr long widest_text = 1L << 24; ///< pixels

int text_background = text_mode_transparent; ///< behind the letters of all fonts; `font_set_text_mode`

/// Baseline of a line below its top.
int baseline(const VectorFont& font)
{
    return font.face->size ? static_cast<int>(font.face->size->metrics.ascender >> 6) : 0;
}

/// How a glyph's byte changes a pixel.
int soft(int below, int color, int strength)
{
    if (strength == 0) return below;
    return strength == 255 ? color : blend_pixel(below, color, strength);
}
int hard(int below, int color, int strength) { return strength == 0 ? below : color; }

template <int Put(int below, int color, int strength)>
void draw_form(BITMAP* bitmap, const GlyphForm& form, long x, long y, int color)
{
    const long first_column = std::max(0L, -x);
    const long end_column = std::min<long>(form.w, bitmap->w - x);
    const long end_row = std::min<long>(form.h, bitmap->h - y);
    for (long r = std::max(0L, -y); r < end_row; ++r) {
        const uint8_t* strengths = form.pixels.data() + r * form.w;
        int* pixels = row(bitmap, static_cast<int>(y + r));
        for (long c = first_column; c < end_column; ++c)
            pixels[x + c] = Put(pixels[x + c], color, strengths[c]);
    }
}

void fill_behind(BITMAP* bitmap, VectorFont& font, const char* text, int x, int y)
{
    if (text_background == text_mode_transparent) return;
    const int right = x + font_text_length(font, text) - 1;
    rectfill(bitmap, x, y, right, y + font_text_height(font) - 1, text_background);
}

template <GlyphForm Glyph::*Form, int Put(int below, int color, int strength)>
void draw_line(BITMAP* bitmap, VectorFont& font, const char* text, int x, int y, int color)
{
    const long base = static_cast<long>(y) + baseline(font);
    long pen = x;
    for (const char* c = text; *c && pen < widest_text; ++c) {
        const Glyph& glyph = cached_glyph(font, static_cast<uint8_t>(*c));
        const GlyphForm& form = glyph.*Form;
        if (form.exists) draw_form<Put>(bitmap, form, pen + form.left, base - form.top, color);
        pen += glyph.advance + font.spacing;
    }
}

} // namespace

int font_set_text_mode(int background) { return std::exchange(text_background, background); }

int font_text_length(VectorFont& font, const char* text)
{
    long length = 0;
    for (const char* c = text; *c; ++c)
        length += cached_glyph(font, static_cast<uint8_t>(*c)).advance + font.spacing;
    return static_cast<int>(std::min(length, widest_text));
}

void font_draw_text(BITMAP* bitmap, VectorFont& font, const char* text, int x, int y, int color)
{
    fill_behind(bitmap, font, text, x, y);
    draw_line<&Glyph::antialiased, soft>(bitmap, font, text, x, y, color);
}

void font_draw_text_plain(BITMAP* bitmap, VectorFont& font, const char* text, int x, int y, int color)
{
    fill_behind(bitmap, font, text, x, y);
    draw_line<&Glyph::plain, hard>(bitmap, font, text, x, y, color);
}

void font_draw_sample(BITMAP* bitmap, VectorFont& font, const char* text, int x, int y, int color, int background)
{
    clear_to_color(bitmap, background);
    draw_line<&Glyph::antialiased, soft>(bitmap, font, text, x, y, color);
}

} // namespace kelu
