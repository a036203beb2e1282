// SPDX-License-Identifier: MIT
// "DRAW", "DRIZ." and "SPRAY": strokes that follow the mouse until the left button is up.
#pragma once

#include "draw/operation.h"

namespace kelu {

/// The stroke of "DRAW": follows the mouse until the left button is up.
void render_draw(const Stroke& stroke);
/// The same of the tools that know no brush tip.
void render_driz(const Stroke& stroke);
void render_spray(const Stroke& stroke);

} // namespace kelu
