// SPDX-License-Identifier: MIT
// RGB to HLS and HSV and back, in double precision and in one fixed order of operations.
#include "colour/spaces.h"

#include "runtime/pixels.h"
#include <algorithm>
#include <cmath>

namespace kelu {
namespace {

constexpr double hls_sextant = 42.5;       ///< a sixth of a turn of hue in HLS: 255 / 6
constexpr double hsv_degrees = 1.40625;    ///< degrees of a step of hue in HSV: 360 / 256
constexpr double least_saturation = 0.001; ///< of 1; below it HLS is a grey

// A third and two thirds with the digits that single precision shows; the last bit of a result hangs on them.
constexpr double one_third = 0.33333334;
constexpr double two_thirds = 0.6666667;

/// One channel of HLS from its hue t of about 0 to 1, between the lowest channel p and the highest q.
double hue_to_rgb(double p, double q, double t)
{
    if (t < 0) t += 1;
    if (t > 1) t -= 1;
    if (6 * t < 1) return p + (q - p) * 6 * t;
    if (2 * t < 1) return q;
    if (3 * t < 2) return p + (q - p) * (two_thirds - t) * 6;
    return p;
}

int truncated(double value) { return static_cast<int>(value); }

} // namespace

Hls rgb_to_hls(double r, double g, double b)
{
    const double red = r / 255;
    const double green = g / 255;
    const double blue = b / 255;
    const double high = std::max({red, green, blue});
    const double low = std::min({red, green, blue});
    const double lightness = (high + low) * 0.5;
    if (high == low) return {0, lightness * 255, 0};
    const double d = high - low;
    const double saturation = lightness < 0.5 ? d / (high + low) : d / (2 - high - low);
    double hue = 0; // in sixths; of equal channels the later one decides
    if (red == high) hue = (green - blue) / d;
    if (green == high) hue = (blue - red) / d + 2;
    if (blue == high) hue = (red - green) / d + 4;
    hue *= hls_sextant;
    if (hue < 0) hue += 255;
    return {hue, lightness * 255, saturation * 255};
}

Hls rgb_to_hls(int color) { return rgb_to_hls(red_of(color), green_of(color), blue_of(color)); }

HlsEnds hls_ends(const Hls& hls)
{
    const double s = hls.s / 255;
    const double l = hls.l / 255;
    if (!(s > least_saturation)) return {l, l};
    const double q = l < 0.5 ? (s + 1) * l : l + s - s * l;
    return {2 * l - q, q};
}

Rgb hls_to_rgb(const Hls& hls)
{
    const auto [p, q] = hls_ends(hls);
    if (p == q) return {p, p, p};
    const double h = hls.h / 255;
    return {hue_to_rgb(p, q, h + one_third), hue_to_rgb(p, q, h), hue_to_rgb(p, q, h - one_third)};
}

Hsv rgb_to_hsv(double r, double g, double b)
{
    const double red = r / 255;
    const double green = g / 255;
    const double blue = b / 255;
    const double high = std::max({red, green, blue});
    const double d = high - std::min({red, green, blue});
    if (d == 0) return {0, 0, high * 255};
    const double gc = (high - green) * 60 / d + 180;
    const double bc = (high - blue) * 60 / d + 180;
    double angle = 0;
    if (red == high) {
        angle = bc - gc;
    } else {
        const double rc = (high - red) * 60 / d + 180;
        angle = green == high ? rc + 120 - bc : gc + 240 - rc;
    }
    if (angle < 0) angle += 360;
    if (angle >= 360) angle -= 360;
    return {angle / hsv_degrees, d / high * 255, high * 255};
}

Rgb hsv_to_rgb(const Hsv& hsv)
{
    const auto [h, s, v] = hsv;
    if (s == 0) return {v, v, v};
    const double sextant = std::floor(6 * h);
    const double f = 6 * h - sextant;
    const double p = (1 - s) * v;
    const double q = (1 - s * f) * v;
    const double t = (1 - (1 - f) * s) * v;
    switch (truncated(sextant)) {
    case 0:
        return {v, t, p};
    case 1:
        return {q, v, p};
    case 2:
        return {p, v, t};
    case 3:
        return {p, q, v};
    case 4:
        return {t, p, v};
    default:
        return {v, p, q};
    }
}

int pack_rgb(const Rgb& rgb)
{
    return pack_rgb(truncated(rgb.r * 255), truncated(rgb.g * 255), truncated(rgb.b * 255));
}

std::array<int, 3> sliders_from_color(int colorspace, int color)
{
    const int r = red_of(color);
    const int g = green_of(color);
    const int b = blue_of(color);
    switch (colorspace) {
    case COLORSPACE_VGA:
        return {r >> 2, g >> 2, b >> 2};
    case COLORSPACE_HLS: {
        const Hls hls = rgb_to_hls(r, g, b);
        return {truncated(hls.h), truncated(hls.l), truncated(hls.s)};
    }
    case COLORSPACE_HSV: {
        const Hsv hsv = rgb_to_hsv(r, g, b);
        return {truncated(hsv.h), truncated(hsv.s), truncated(hsv.v)};
    }
    default:
        return {r, g, b};
    }
}

int color_from_sliders(int colorspace, int a, int b, int c)
{
    switch (colorspace) {
    case COLORSPACE_VGA:
        return pack_rgb(a << 2, b << 2, c << 2);
    case COLORSPACE_HLS:
        return pack_rgb(hls_to_rgb({static_cast<double>(a), static_cast<double>(b), static_cast<double>(c)}));
    case COLORSPACE_HSV:
        return pack_rgb(hsv_to_rgb({a * hsv_degrees / 360, b / 255.0, c / 255.0}));
    default:
        return pack_rgb(a, b, c);
    }
}

int invert_mix(int color, int amount)
{
    const double t = amount / 255.0;
    const double u = 1 - t;
    const auto channel = [t, u](int c) { return truncated(std::clamp(u * c + t * (c ^ 255), 0.0, 255.0)); };
    return pack_rgb(channel(red_of(color)), channel(green_of(color)), channel(blue_of(color)));
}

} // namespace kelu
