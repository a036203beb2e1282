// SPDX-License-Identifier: MIT
// The help screen and the about box.
#pragma once

namespace kelu {

/// Runs the help screen; the drawing menu is open at the end.
void help_menu();
/// Shows the about box until OKAY. The caller builds its own menu.
void about_menu();

} // namespace kelu
