// SPDX-License-Identifier: MIT
// The spectrum: a band between two colours, with folds and bands, that the gradient inks paint and the menus draw.
#pragma once

#include "runtime/color_band.h"

namespace kelu {

constexpr int max_spectrum_fold = 3; ///< each fold doubles the number of peaks

/// The colour at `position` of the band from `start` to `end`, with the folds of `spectrum`. Positions outside 0 to 1
/// count as the ends. With more than one of `bands` the colours go in that many steps from the start, and the last one
/// stays a step short of the end; 0 and 1 are smooth. Single precision, truncated.
int spectrum_color(int start, int end, float bands, float position);

} // namespace kelu
