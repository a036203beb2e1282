// SPDX-License-Identifier: MIT
// The options screen: everything that the user may prefer, in one scrolling table.
#pragma once

namespace kelu {

/// Runs the screen. Options act as they are set; CANCEL brings the old ones back. The caller clears nothing before it
/// and builds the drawing menu after it.
void options_menu();

} // namespace kelu
