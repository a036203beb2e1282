// SPDX-License-Identifier: MIT
// Taking a cel: by two corners, or by all that isn't background.
#pragma once

#include "draw/cel.h"

namespace kelu {

enum GrabResult : int { GRAB_CANCELLED = -1, GRAB_TAKEN = 1 };

/// Lets the user give a rectangle by two clicks, makes it the cel and its corner the cel's origin. (x0, y0) is the
/// first corner in frame pixels, `no_corner_yet` when it is to come. With `hide_menu` the menu is hidden meanwhile.
GrabResult cel_get(int x0, int y0, bool hide_menu);

/// Makes the box of everything that isn't near `color` the cel, and shows it for 0.6 seconds. Nothing happens when it
/// isn't more than a pixel wide and high. The cel's origin stays.
void cel_clip(int color);

} // namespace kelu
