// SPDX-License-Identifier: MIT
// The resize screen: another size for the current frame.
#pragma once

namespace kelu {

/// Runs the screen. The caller builds the drawing menu after it.
void resize_menu();

} // namespace kelu
