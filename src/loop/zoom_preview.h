// SPDX-License-Identifier: MIT
// The window that shows the frame round the pointer at its true size while the user is zoomed in.
#pragma once

namespace kelu {

/// Opens or closes the window as zoom level, options and open menu require: it is on the drawing menu alone, from
/// level 2 on. Called by every frame; main thread.
void update_zoom_preview();

} // namespace kelu
