// SPDX-License-Identifier: MIT
// Palettes of 256 colours for pictures of more: what GIF and LBM need.
//
// All palettes have 6 bits a channel, 0 to 63. Top bytes of pixels don't count.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Values of the option 256 COLOR REDUCTION.
enum ColorReduction { REDUCE_FAST, REDUCE_GOOD, REDUCE_BEST };

/// The picture's own colours in order of first appearance, the rest of the palette black. Returns their number, or -1
/// when there are more than 256; the palette is then as it was.
int quantize_exact(BITMAP* frame, RGB* palette);

/// A palette by the neural quantiser, which looks at one pixel in `sample_factor`.
void quantize_neural(BITMAP* frame, int sample_factor, RGB* palette);

/// A palette as the option asks: FAST Allegro's optimised palette, GOOD the network over a tenth of the pixels, BEST
/// the exact colours or else the network over all pixels.
void reduce_colors(BITMAP* frame, int reduction, RGB* palette);

} // namespace kelu
