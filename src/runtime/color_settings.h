// SPDX-License-Identifier: MIT
// What the colour screens remember between two openings.
#pragma once

#include <array>

namespace kelu {

enum Colorspace : int { COLORSPACE_VGA, COLORSPACE_RGB, COLORSPACE_HLS, COLORSPACE_HSV, COLORSPACE_COUNT };

/// Owner: the colour and tint screens. Also written by the state file.
/// Writers: workspace, screens.
struct ColorSettings {
    int colorspace = COLORSPACE_RGB;  ///< what the three sliders of the colour menu stand for
    int favorites_scroll = 0;         ///< first visible row of the extended favourites, 0 to 13
    std::array<int, 3> tint_values{}; ///< last accepted shifts of hue, lightness and saturation, -128 to 128
    int tint_ignore_mask = 0;         ///< 1: a tint leaves pixels of the mask colour as they are
};
inline ColorSettings color_settings;

} // namespace kelu
