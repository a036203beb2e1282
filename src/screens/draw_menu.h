// SPDX-License-Identifier: MIT
// The home screen: one strip of buttons over the frame, from which everything else opens.
#pragma once

namespace kelu {

/// The program's main loop, the only one in which drawing happens: returns when the exit has been requested.
void draw_menu();

} // namespace kelu
