// SPDX-License-Identifier: MIT
// What the screens share of the picture: menus frozen behind pop-ups, and the colour under the pointer.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Draws the present GUI into the frozen picture and sets the ghost rectangle, so that the open window stays visible,
/// dim, behind a pop-up until `clear_ghost`.
void freeze_menu();

/// The colour on the screen under the pointer, menus included; without crosshairs, cursor, overlay and grid.
int grab_screen_color();

} // namespace kelu
