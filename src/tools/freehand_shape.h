// "FSHAPE": an outline drawn by hand, closed when the button is released.
#pragma once

#include "draw/point_list.h"

namespace kelu {

constexpr int no_position = -1; ///< coordinate of a stroke's last position before its first sample

/// Adds a sample of the hand to the outline: one that equals `last` is left out, one further than a pixel away from
/// it follows `last` itself.
void append_sample(Points& points, Point last, Point sample);

/// Follows the mouse from the press on. Returns 1: there is no cancel.
int freehand_shape_tool();

} // namespace kelu
