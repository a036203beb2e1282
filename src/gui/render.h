// SPDX-License-Identifier: MIT
// Drawing of the table: every slot again in every frame, from 0 up. Main thread.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Draws all slots that are active and not hidden into the back buffer.
void gui_render();
/// The same into any bitmap of the screen's size.
void gui_render_to(BITMAP* target);
/// Keeps the picture of the open menu for a pop-up to be drawn over: clears the bitmap to magenta, draws the table into
/// it and sets `ghost_rect`.
void freeze_menu(BITMAP* bitmap);

} // namespace kelu
