// SPDX-License-Identifier: MIT
// Filled shapes: runs of pixels without a tip, with the display test in between.
#pragma once

#include "draw/operation.h"

namespace kelu {

/// Puts the stroke's ink at full strength on the pixels from `left` to `right`, both included, of row y, as far as
/// they lie in the frame. Runs a frame whenever one is due, so that a wide shape under a slow ink stays visible.
void fill_span(int left, int right, int y, int ink);

} // namespace kelu
