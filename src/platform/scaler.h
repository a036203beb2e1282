// SPDX-License-Identifier: MIT
// Sharp integer scaling of the logical picture into the bitmap that goes to the screen.
#pragma once

#include <allegro.h>

namespace kelu::platform {

constexpr int min_scale = 2;  ///< physical pixels for a logical one
constexpr int max_scale = 18; ///< fills a screen of 7680 x 4320

/// Order of the colour channels in the screen's words. EXCHANGED is for displays of 8 or 30 bits, where Allegro's
/// driver takes 0x00BBGGRR.
enum class ChannelOrder { PLAIN, EXCHANGED };

/// Draws rows `first` to `last` of the picture into `scaled` at the same rows times `scale`: each pixel becomes scale x
/// scale equal ones. `scaled` has at least the picture's size times `scale`, and both are memory bitmaps of 32 bits.
void scale_rows(BITMAP* picture, BITMAP* scaled, int scale, int first, int last, ChannelOrder order);

} // namespace kelu::platform
