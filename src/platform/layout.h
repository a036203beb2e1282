// SPDX-License-Identifier: MIT
// The layout of colours and the encoding of names, the same on every display.
#pragma once

#include <allegro.h>

namespace kelu::platform {

/// After Allegro's start and after a mode: 32-bit pixels are 0x00RRGGBB, files have UTF-8 names, and the 6 bits v of a
/// palette become v x 255 / 63, truncated: the tones by which the GUI sheet is recoloured are such values.
inline void fix_pixel_layout()
{
    set_color_depth(32);
    set_filename_encoding(U_UTF8);
    _rgb_r_shift_32 = 16;
    _rgb_g_shift_32 = 8;
    _rgb_b_shift_32 = 0;
    _rgb_a_shift_32 = 24;
    for (int v = 0; v < 64; ++v)
        _rgb_scale_6[v] = v * 255 / 63;
}

} // namespace kelu::platform
