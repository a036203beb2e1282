// SPDX-License-Identifier: MIT
// Translucent rectangles and sprites, the mix of two colours, and the box shrink.
#include "runtime/pixels.h"

#include <algorithm>
#include <cmath>

namespace kelu {
namespace {

/// The part of a rectangle that lies on the bitmap; w or h is below 1 when none does.
struct Clipped {
    int x, y, w, h;
};

Clipped clip_to(const BITMAP* bitmap, int x, int y, int w, int h)
{
    const int left = std::max(x, 0);
    const int top = std::max(y, 0);
    return {left, top, std::min(x + w, bitmap->w) - left, std::min(y + h, bitmap->h) - top};
}

/// One channel of `mix_colors`.
int mix_channel(int a, int b, float u, float t)
{
    const float mixed = u * static_cast<float>(a) + t * static_cast<float>(b);
    return static_cast<int>(std::clamp(mixed, 0.0F, 255.0F));
}

constexpr int mean_pixel(int a, int b) { return ((a & 0xfefefe) >> 1) + ((b & 0xfefefe) >> 1) + (a & b & 0x010101); }

/// dst + ((src - dst) x opacity >> 8), red and blue in one word and green in another, each masked to its field.
constexpr int blend_fields(int dst, int src, int opacity)
{
    const unsigned d = static_cast<unsigned>(dst);
    const unsigned s = static_cast<unsigned>(src);
    const unsigned n = static_cast<unsigned>(opacity);
    const unsigned rb = ((((s & 0xff00ff) - (d & 0xff00ff)) * n >> 8) + d) & 0xff00ff;
    const unsigned g = ((((s & 0x00ff00) - (d & 0x00ff00)) * n >> 8) + d) & 0x00ff00;
    return static_cast<int>(rb | g);
}

} // namespace

void blend_rect(BITMAP* bitmap, int x, int y, int w, int h, int color, int alpha)
{
    if (alpha <= 0) return;
    const Clipped area = clip_to(bitmap, x, y, w, h);
    if (area.w < 1) return;
    for (int line = area.y; line < area.y + area.h; ++line) {
        int* pixel = row(bitmap, line) + area.x;
        if (alpha == 255) {
            std::fill_n(pixel, area.w, color);
            continue;
        }
        for (int* end = pixel + area.w; pixel < end; ++pixel)
            *pixel = blend_pixel(*pixel, color, alpha);
    }
}

int mix_colors(int a, int b, int alpha)
{
    const float t = static_cast<float>(alpha) / 255.0F;
    const float u = 1.0F - t;
    return pack_rgb(mix_channel(red_of(a), red_of(b), u, t), mix_channel(green_of(a), green_of(b), u, t),
                    mix_channel(blue_of(a), blue_of(b), u, t));
}

int blend_sprite_pixel(int below, int source, int opacity)
{
    if (source == mask_magenta || opacity < 1) return below;
    if (opacity == 255) return source;
    return opacity == 127 || opacity == 128 ? mean_pixel(below, source) : blend_fields(below, source, opacity);
}

void blend_sprite(BITMAP* source, BITMAP* target, int x, int y, int opacity)
{
    if (opacity < 1) return;
    if (opacity == 255) {
        masked_blit(source, target, 0, 0, x, y, source->w, source->h);
        return;
    }
    const Clipped area = clip_to(target, x, y, source->w, source->h);
    for (int line = area.y; line < area.y + area.h; ++line) {
        const int* from = row(source, line - y) - x;
        int* to = row(target, line);
        for (int column = area.x; column < area.x + area.w; ++column) {
            to[column] = blend_sprite_pixel(to[column], from[column], opacity);
        }
    }
}

void downscale_bitmap(BITMAP* source, BITMAP* target, int x, int y, int w, int h)
{
    const int box_w = source->w / w;
    const int box_h = source->h / h;
    if (box_w < 1 || box_h < 1) return;
    const float step_x = static_cast<float>(source->w) / static_cast<float>(w);
    const float step_y = static_cast<float>(source->h) / static_cast<float>(h);
    const double pixels = static_cast<double>(box_w) * box_h;
    const auto mean = [pixels](long sum) { return static_cast<int>(std::ceil(static_cast<double>(sum) / pixels)); };
    float top = 0;
    for (int r = 0; r < h; ++r, top += step_y) {
        float left = 0;
        for (int c = 0; c < w; ++c, left += step_x) {
            const int first_x = std::min(static_cast<int>(left), source->w - box_w);
            const int first_y = std::min(static_cast<int>(top), source->h - box_h);
            long red = 0;
            long green = 0;
            long blue = 0;
            for (int j = 0; j < box_h; ++j) {
                const int* pixel = row(source, first_y + j) + first_x;
                int row_red = 0, row_green = 0, row_blue = 0; // narrow: more of them go side by side
                for (int i = 0; i < box_w; ++i) {
                    row_red += red_of(pixel[i]);
                    row_green += green_of(pixel[i]);
                    row_blue += blue_of(pixel[i]);
                }
                red += row_red;
                green += row_green;
                blue += row_blue;
            }
            if (in_bitmap(target, x + c, y + r))
                row(target, y + r)[x + c] = pack_rgb(mean(red), mean(green), mean(blue));
        }
    }
}

UsedBox used_box(BITMAP* bitmap, int background)
{
    const auto differs = [background](int pixel) { return pixel != background; };
    int left = bitmap->w;
    int right = -1;
    int top = -1;
    int bottom = -1;
    for (int y = 0; y < bitmap->h; ++y) {
        const int* line = row(bitmap, y);
        const int* end = line + bitmap->w;
        const int* first = std::find_if(line, end, differs);
        if (first == end) continue;
        if (top < 0) top = y;
        bottom = y;
        left = std::min(left, static_cast<int>(first - line));
        // Only what lies beyond the box so far can widen it.
        const int* last = end;
        while (last - line > right + 1 && !differs(last[-1]))
            --last;
        right = std::max(right, static_cast<int>(last - line) - 1);
    }
    if (top < 0) return {};
    return {left, top, right - left + 1, bottom - top + 1};
}

void mask_black(BITMAP* bitmap)
{
    for (int line = 0; line < bitmap->h; ++line) {
        int* pixels = row(bitmap, line);
        std::replace(pixels, pixels + bitmap->w, 0, mask_magenta);
    }
}

} // namespace kelu
