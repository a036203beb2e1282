// SPDX-License-Identifier: MIT
// The brush tip menu.
#pragma once

namespace kelu {

/// Runs the menu. Returns the tip that was clicked last, 36 for the custom tip, -1 when none was. The caller sets it,
/// clears the slots and builds the drawing menu.
int tip_menu();

/// Opens the tip menu from the drawing menu and takes its choice.
void choose_tip();

} // namespace kelu
