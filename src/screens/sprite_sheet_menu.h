// SPDX-License-Identifier: MIT
// The sprite sheet screen: makes the frame an empty grid of sprite cells.
#pragma once

namespace kelu {

/// Runs the screen. The caller builds the drawing menu after it.
void sprite_sheet_menu();

} // namespace kelu
