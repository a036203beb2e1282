// The layout of colours and the encoding of names, the same on every display.
#pragma once

#include <allegro.h>

namespace kelu::platform {

/// After Allegro's start and after a mode: 32-bit pixels are 0x00RRGGBB, files have UTF-8 names.
inline void fix_pixel_layout()
{
    set_color_depth(32);
    set_filename_encoding(U_UTF8);
    _rgb_r_shift_32 = 16;
    _rgb_g_shift_32 = 8;
    _rgb_b_shift_32 = 0;
    _rgb_a_shift_32 = 24;
}

} // namespace kelu::platform
