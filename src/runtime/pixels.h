// SPDX-License-Identifier: MIT
// Colour arithmetic on pixels and rectangles, exact to the last bit.
#pragma once

#include "base/bitmap.h"

namespace kelu {

constexpr int red_of(int color) { return color >> 16 & 255; }
constexpr int green_of(int color) { return color >> 8 & 255; }
constexpr int blue_of(int color) { return color & 255; }
/// Packs three channels of 0 to 255; the program's layout is 0x00RRGGBB on every display.
constexpr int pack_rgb(int r, int g, int b) { return r << 16 | g << 8 | b; }

/// `color` laid over `below` at alpha 1 to 254: with f = alpha + 1, (below x (256 - f) >> 8) + (color x f >> 8) in
/// each channel. Top byte 0.
constexpr int blend_pixel(int below, int color, int alpha)
{
    const int f = alpha + 1;
    const int g = 256 - f;
    return (((red_of(below) * g) >> 8) + ((red_of(color) * f) >> 8)) << 16 |
           (((green_of(below) * g) >> 8) + ((green_of(color) * f) >> 8)) << 8 |
           (((blue_of(below) * g) >> 8) + ((blue_of(color) * f) >> 8));
}

/// Translucent rectangle, clipped to the bitmap and to nothing else. Alpha 0 or less draws nothing, 255 fills with
/// `color`, between them each pixel takes `blend_pixel`.
void blend_rect(BITMAP* bitmap, int x, int y, int w, int h, int color, int alpha);

/// u x a + t x b in each channel, with t = alpha / 255 and u = 1 - t in single precision, clamped to 0 to 255 and
/// truncated.
int mix_colors(int a, int b, int alpha);

/// True when each channel differs by less than the tolerance; a tolerance of 0 never matches.
constexpr bool colors_close(int a, int b, int tolerance)
{
    const auto near = [tolerance](int p, int q) { return (p > q ? p - q : q - p) < tolerance; };
    return near(red_of(a), red_of(b)) && near(green_of(a), green_of(b)) && near(blue_of(a), blue_of(b));
}

/// One pixel of `blend_sprite`: `source` over `below` at opacity 0 to 255; magenta leaves `below`.
int blend_sprite_pixel(int below, int source, int opacity);

/// Draws `source` over `target` at (x, y), leaving its magenta out. Below opacity 1 nothing, at 255 a masked blit, at
/// 127 and 128 the exact mean, else dst + ((src - dst) x opacity >> 8) in each channel.
void blend_sprite(BITMAP* source, BITMAP* target, int x, int y, int opacity);

/// The one shrink of the program: fills the w x h pixels of `target` at (x, y) with box means of `source`, rounded
/// up. The source must be at least as wide and as high as the target rectangle.
void downscale_bitmap(BITMAP* source, BITMAP* target, int x, int y, int w, int h);

/// The smallest rectangle that holds all pixels of a bitmap but those of a background; w and h are 0 when there are
/// none.
struct UsedBox {
    int x = 0, y = 0, w = 0, h = 0;
};
UsedBox used_box(BITMAP* bitmap, int background);

/// Every black pixel becomes magenta.
void mask_black(BITMAP* bitmap);

} // namespace kelu
