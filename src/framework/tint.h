// SPDX-License-Identifier: MIT
// The screen tint: one translucent colour over the whole picture, moved by an actor of its own. The picture fades in
// from black with it at the start.
#pragma once

#include "base/bitmap.h"
#include "base/words.h"

namespace kelu {

/// The tint. Written by the palette behaviour on the timer thread, and by start-up; the main thread draws it.
struct Tint {
    Shared<int> tint_red = -1, tint_green = -1, tint_blue = -1; ///< channels 0 to 255; -1: no tint
    Shared<int> tint_opacity = 0;                               ///< 0 to 254
};
inline Tint tint;

/// Sends the tint to a colour (0 to 255 a channel) and its opacity from the present one to `target`, by `step` each
/// time that the timer (140 Hz) has counted past `interval`. A step below 1 holds the colour. While a tint runs, it
/// is sent elsewhere and takes no second actor. No free actor: a line in the log, and no change.
void FW_tint_screen(int red, int green, int blue, int target, int interval, int step);

/// Lays the tint over a picture. Nothing where a channel is -1 or the opacity 0.
void draw_screen_tint(BITMAP* picture);

} // namespace kelu
