// SPDX-License-Identifier: MIT
// "FILL": the connected area round a point.
//
// Connection is by the four sides. A pixel belongs to the area when it is close to the seed, the pixel clicked, and
// not to its neighbour, so that the tolerance doesn't drift along a soft gradient.
#pragma once

#include "base/bitmap.h"
#include "base/function_ref.h"
#include "draw/operation.h"

namespace kelu {

/// Walks the area round (x, y) of `source`: reports each of its runs once, and calls `show_progress` after each run
/// whose neighbour rows have been looked at. `tolerance` is 0 to 255 and strict: 1 takes the exact colour, 0 nothing.
/// The cost is linear in the pixels of the area. `source` must not change meanwhile.
void walk_area(BITMAP* source, int x, int y, int tolerance, SpanVisit run, FunctionRef<void()> show_progress);

/// Fills the area round (x, y) of `source` on the frame with the current tool and ink. With "OPAQUE" on a pixel that
/// has `color` already, nothing happens.
void flood_fill(BITMAP* source, int x, int y, int color, int tolerance);

/// The geometry of "FILL".
void render_fill(const Stroke& stroke);

} // namespace kelu
