// SPDX-License-Identifier: MIT
// Drawing of one line of text.
//
// A glyph is resolved once into its working colours and goes straight to the target's lines; only shadows and the
// translucent modes, which the program uses rarely, go through a work bitmap.
#include "gui/text.h"
#include "base/sizes.h"

#include "base/log.h"
#include "runtime/pixels.h"
#include <algorithm>
#include <allegro.h>
#include <vector>

namespace kelu {
namespace {

constexpr int screen_right = 320; // glyphs beyond these aren't drawn, whatever the bitmap
constexpr int screen_bottom = 240;
constexpr int white_tint = pack_rgb(254, 254, 254);
constexpr int dark_amount = 10; // of the second shadow tone's ground
constexpr int shadow_amount = 30;

/// What each marker colour becomes. A colour that a set gives may itself be a later marker, and is then replaced too.
struct Inks {
    std::array<int, marker_count> markers{};
    std::array<int, marker_count> colours{};

    int operator()(int pixel) const
    {
        for (std::size_t k = 0; k < marker_count; ++k) {
            if (pixel == markers[k]) return colours[k];
        }
        return pixel;
    }
};

Inks working_inks(int set, bool recolour)
{
    Inks inks;
    std::copy_n(palette_color + first_marker, marker_count, inks.markers.begin());
    inks.colours = inks.markers;
    if (!recolour) return inks;
    const ColourSet& entries = text_colours[std::clamp(set, 0, text_set_count - 1)];
    for (int& colour : inks.colours) {
        for (std::size_t k = 0; k < marker_count; ++k) {
            if (colour == inks.markers[k] && entries[k] != marker_stays) colour = entries[k];
        }
    }
    return inks;
}

/// The set of a colour code's two digits; what isn't a digit ends the number.
int code_number(const char* digits)
{
    int number = 0;
    for (int i = 0; i < 2 && digits[i] >= '0' && digits[i] <= '9'; ++i)
        number = number * 10 + (digits[i] - '0');
    return std::min(number, text_set_count - 1);
}

bool starts_code(const char* text) { return text[0] == '|' && text[1] == 'c' && text[2] != 0 && text[3] != 0; }

/// One glyph in its working colours, magenta where it is empty.
struct Glyph {
    std::vector<int> pixels;
    int w = 0, h = 0;

    bool empty_at(int x, int y) const
    {
        return x < 0 || y < 0 || x >= w || y >= h || *(pixels.data() + y * w + x) == mask_magenta;
    }
};

void resolve(Glyph& glyph, const Font& font, unsigned char code, const Inks& inks)
{
    for (int y = 0; y < glyph.h; ++y) {
        const int* from = row(font.glyph_sheet, y) + font.glyph_x[code];
        int* to = glyph.pixels.data() + y * glyph.w;
        for (int x = 0; x < glyph.w; ++x)
            to[x] = from[x] == mask_magenta ? mask_magenta : inks(from[x]);
    }
}

void put_glyph(BITMAP* target, const Glyph& glyph, int x, int y)
{
    const int first = std::max(0, -x);
    const int last = std::min(glyph.w, target->w - x);
    for (int line = std::max(0, -y); line < glyph.h && y + line < target->h; ++line) {
        const int* from = glyph.pixels.data() + line * glyph.w;
        int* to = row(target, y + line) + x;
        for (int column = first; column < last; ++column) {
            if (from[column] != mask_magenta) to[column] = from[column];
        }
    }
}

/// Lies on top of what the glyph left, and reaches one pixel beyond the cell.
void put_outline(BITMAP* target, const Glyph& glyph, int x, int y, int colour)
{
    constexpr struct {
        int dx, dy;
    } neighbours[] = {{0, -1}, {0, 1}, {-1, 0}, {1, 0}};
    for (int line = 0; line < glyph.h; ++line) {
        for (int column = 0; column < glyph.w; ++column) {
            if (glyph.empty_at(column, line)) continue;
            for (const auto& [dx, dy] : neighbours) {
                if (in_bitmap(target, x + column + dx, y + line + dy) && glyph.empty_at(column + dx, line + dy))
                    row(target, y + line + dy)[x + column + dx] = colour;
            }
        }
    }
}

/// `tint_sprite` of a whole bitmap, clipped to the target.
void tint_clipped(BITMAP* source, BITMAP* target, int x, int y, int colour, int amount)
{
    const int sx = std::max(0, -x);
    const int sy = std::max(0, -y);
    const int w = std::min(source->w, target->w - x) - sx;
    const int h = std::min(source->h, target->h - y) - sy;
    if (w > 0 && h > 0) tint_sprite(source, target, sx, sy, x + sx, y + sy, w, h, colour, amount);
}

Bitmap to_bitmap(const Glyph& glyph)
{
    Bitmap work(glyph.w, glyph.h, mask_magenta);
    if (work) put_glyph(work, glyph, 0, 0);
    return work;
}

void put_shadow(BITMAP* target, const Glyph& glyph, int x, int y)
{
    const Bitmap work = to_bitmap(glyph);
    if (!work) return;
    const int tone = text_pen.text_shadow_colour;
    const int colour = palette_color[tone & (PAL_SIZE - 1)];
    switch (text_pen.text_shadow) {
    case 1:
        tint_clipped(work, target, x, y, colour, 0);
        break;
    case 2:
        tint_clipped(work, target, x, y, palette_color[0], tone);
        break;
    default: {
        const Bitmap scratch(glyph.w, glyph.h, mask_magenta);
        if (!scratch) return;
        tint_clipped(work, scratch, 0, 0, palette_color[0], dark_amount);
        tint_clipped(scratch, target, x, y, colour, shadow_amount);
    }
    }
}

void put_in_mode(BITMAP* target, const Glyph& glyph, int x, int y)
{
    if (text_pen.text_mode == 0) {
        put_glyph(target, glyph, x, y);
        return;
    }
    const Bitmap work = to_bitmap(glyph);
    if (!work) return;
    if (text_pen.text_mode > 0) {
        blend_sprite(work, target, x, y, text_pen.text_opacity);
    } else {
        tint_clipped(work, target, x, y, white_tint, text_pen.text_opacity);
    }
}

void keep_unless_unset(int& value, int argument)
{
    if (argument != -1) value = argument;
}

} // namespace

void set_text(const TextStyle& style)
{
    if (style.slot < 0 || style.slot >= FONT_SLOT_COUNT) {
        log_line("[ ERROR ] : Tried to set font attribute for invalid slot. Slot = %d", style.slot);
        return;
    }
    text_pen.text_slot = style.slot;
    keep_unless_unset(text_pen.text_colour_set, style.colour_set);
    keep_unless_unset(text_pen.text_shadow, style.shadow);
    keep_unless_unset(text_pen.text_shadow_colour, style.shadow_colour);
    keep_unless_unset(text_pen.text_outline, style.outline);
    keep_unless_unset(text_pen.text_mode, style.mode);
    keep_unless_unset(text_pen.text_opacity, style.opacity);
}

void set_plain_text(int slot, int colour_set) { set_text({.slot = slot, .colour_set = colour_set}); }

void set_outlined_text(int slot, int colour_set) { set_text({.slot = slot, .colour_set = colour_set, .outline = 1}); }

int draw_text(BITMAP* bitmap, int x, int y, const char* string)
{
    if (text_pen.text_slot < 0 || text_pen.text_slot >= FONT_SLOT_COUNT) {
        log_line("[ ERROR ] : Tried to write text using an invalid slot. Slot = %d", text_pen.text_slot);
        return 0;
    }
    const Font& font = font_table[text_pen.text_slot];
    const bool draws = x != text_measure && font.glyph_sheet;
    static Glyph glyph; // kept between calls for its memory
    glyph.w = font.cell_w;
    glyph.h = font.cell_h;
    glyph.pixels.resize(product(glyph.w, glyph.h));
    Inks inks = working_inks(text_pen.text_colour_set, text_pen.text_colour_set != 0);
    int pen = 0;
    for (const char* at = string; *at != 0; ++at) {
        if (starts_code(at)) {
            text_pen.text_colour_set = code_number(at + 2);
            inks = working_inks(text_pen.text_colour_set, true);
            at += 3;
            continue;
        }
        const auto code = static_cast<unsigned char>(*at);
        const int cx = x + pen;
        const int cy = y + font.glyph_y[code];
        pen += font.advance[code];
        if (!draws || cx > screen_right || cx + glyph.w < 0 || cy > screen_bottom || cy + glyph.h < 0) continue;
        resolve(glyph, font, code, inks);
        if (text_pen.text_shadow != 0) put_shadow(bitmap, glyph, cx + font.shadow_dx, cy + font.shadow_dy);
        put_in_mode(bitmap, glyph, cx, cy);
        if (text_pen.text_outline != 0)
            put_outline(bitmap, glyph, cx, cy, palette_color[text_pen.text_outline & (PAL_SIZE - 1)]);
    }
    return pen;
}

int text_width(const char* string)
{
    // A code in the string sets the pen for good: measuring leaves it as it was.
    const int set = text_pen.text_colour_set;
    const int width = draw_text(nullptr, text_measure, 0, string);
    text_pen.text_colour_set = set;
    return width;
}

void tint_sprite(BITMAP* source, BITMAP* target, int sx, int sy, int dx, int dy, int w, int h, int colour, int amount)
{
    const int rest = 256 - amount;
    const auto mix = [amount, rest](int from, int to) { return from * amount / 256 + to * rest / 256; };
    for (int line = 0; line < h; ++line) {
        const int* from = row(source, sy + line) + sx;
        int* to = row(target, dy + line) + dx;
        for (int i = 0; i < w; ++i) {
            if (from[i] == mask_magenta) continue;
            to[i] = pack_rgb(mix(red_of(from[i]), red_of(colour)), mix(green_of(from[i]), green_of(colour)),
                             mix(blue_of(from[i]), blue_of(colour)));
        }
    }
}

} // namespace kelu
