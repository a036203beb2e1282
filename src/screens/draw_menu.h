// The home screen.
#pragma once

namespace kelu {

/// The program's main loop: returns when the exit has been requested.
void draw_menu();

} // namespace kelu
