// SPDX-License-Identifier: MIT
// The pointer on the picture: crosshairs and cursor.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// The four translucent bars through the pointer, in the colour, strength and width of the user's options.
void paint_crosshairs(BITMAP* target);
/// The cursor: the brush's pixel and a cross, or the brush tip's shape, at the snapshot's pointer. `scaled` draws it
/// in frame pixels, else in logical pixels.
void paint_cursor(BITMAP* target, bool scaled);
/// The cursor of a frame that leaves the tools' previews out: a plain "X".
void paint_waiting_cursor(BITMAP* target);

} // namespace kelu
