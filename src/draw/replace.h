// SPDX-License-Identifier: MIT
// "SEP." and "EDGE": every pixel of a colour, and the rim of every area of a colour, over the whole frame.
#pragma once

#include "base/bitmap.h"
#include "base/function_ref.h"
#include "draw/operation.h"

namespace kelu {

/// Reports each pixel of `source` that is close to `color`, row by row. `tolerance` is 0 to 255 and strict.
void walk_color(BITMAP* source, int color, int tolerance, PointVisit visit);

/// Reports each pixel that belongs to `color` (every channel differs by less than the tolerance), once for each of its
/// neighbours above, right, below and left that is foreign to it (a channel differs by more). The rim of the bitmap
/// is no neighbour.
void walk_rims(BITMAP* source, int color, int tolerance, PointVisit visit);

/// The geometry of the two tools.
void render_replace(const Stroke& stroke);
void render_edge(const Stroke& stroke);

} // namespace kelu
