// SPDX-License-Identifier: MIT
// The operation of the tools that gather a list of points: an outline under the brush tip, or its inside.
#pragma once

#include "draw/operation.h"

namespace kelu {

/// The geometry of POLY, R.POLY, FSHAPE, SSHAPE, SPIRAL and SPLINE: the point list as an open line, or as a polygon
/// where the tool's option says so. A spiral is always a line.
void render_point_list(const Stroke& stroke);

} // namespace kelu
