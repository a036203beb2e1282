// SPDX-License-Identifier: MIT
// Colour spaces on the program's own scales. Every conversion to an integer truncates, so that a colour may drift by a
// step each time it passes through HLS or HSV.
#pragma once

#include "runtime/color_settings.h"
#include <array>

namespace kelu {

/// Hue, lightness, saturation. A full turn of hue is 255.
struct Hls {
    double h, l, s; ///< each 0 to 255
};

/// Hue, saturation, value. The scale is the function's that takes or gives it.
struct Hsv {
    double h, s, v;
};

/// Channels of 0 to 1.
struct Rgb {
    double r, g, b;
};

/// Channels 0 to 255; a grey has hue and saturation 0. After Smith's hexcone with lightness (Foley and van Dam).
Hls rgb_to_hls(double r, double g, double b);
/// Of a packed colour.
Hls rgb_to_hls(int color);
Rgb hls_to_rgb(const Hls& hls);
/// The lowest and the highest channel, 0 to 1, between which `hls_to_rgb` places the others by the hue.
struct HlsEnds {
    double low, high;
};
HlsEnds hls_ends(const Hls& hls);

/// Channels 0 to 255; h comes out as 0 to below 256, where 256 is a full turn, s and v as 0 to 255.
Hsv rgb_to_hsv(double r, double g, double b);
/// Hue, saturation and value of 0 to 1. A hue of 1 and more lands in the last sixth.
Rgb hsv_to_rgb(const Hsv& hsv);

/// Packs channels of 0 to 1, each times 255 and truncated.
int pack_rgb(const Rgb& rgb);

/// The three sliders that show a packed colour in a `Colorspace`: VGA 0 to 63, the others 0 to 255; HLS and HSV in the
/// order of their letters.
std::array<int, 3> sliders_from_color(int colorspace, int color);
/// The packed colour that three sliders stand for.
int color_from_sliders(int colorspace, int a, int b, int c);

/// Mixes a packed colour with its inverse, amount 0 to 255, truncated: shows on any background.
int invert_mix(int color, int amount);

} // namespace kelu
