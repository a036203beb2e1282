// SPDX-License-Identifier: MIT
// "LINE", "BOX" and "CIRCLE" between two points.
#pragma once

#include "draw/operation.h"

namespace kelu {

/// The geometries, between nodes 0 and 1.
void render_line(const Stroke& stroke);
void render_box(const Stroke& stroke);
void render_circle(const Stroke& stroke);

} // namespace kelu
