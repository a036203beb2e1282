// SPDX-License-Identifier: MIT
// Drawing of speech bubbles.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Draws every open bubble above its actor, as the shadow of this frame shows it, and within the picture. While a
/// bubble opens and closes it is a panel without text. Main thread.
void draw_bubbles(BITMAP* picture);

} // namespace kelu
