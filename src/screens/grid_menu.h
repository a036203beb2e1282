// SPDX-License-Identifier: MIT
// The grid screen: pitch, offset and opacity of the snap grid.
#pragma once

namespace kelu {

/// Runs the screen. Numbers act as they are typed; CANCEL brings the old ones back. The caller builds the drawing menu
/// after it.
void grid_menu();

} // namespace kelu
