// SPDX-License-Identifier: MIT
// The mouse button screen: what each button does.
#pragma once

namespace kelu {

/// Runs the screen. The caller builds the drawing menu after it.
void mouse_button_menu();

} // namespace kelu
