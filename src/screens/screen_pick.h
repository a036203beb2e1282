// SPDX-License-Identifier: MIT
// Colours that the user points at on the screen: one for a cell, or the two ends of the spectrum.
//
// Menus below stay visible and can be picked from; their buttons take no clicks meanwhile.
#pragma once

namespace kelu {

/// Waits for a click: the colour on the screen there, -1 on a right click or the program's end, -2 for a point off the
/// screen.
int pick_screen_color();

/// Two clicks become the start and the end of the spectrum; a right click leaves it as it was. The bar in
/// `spectrum_slot` shows a restless frame meanwhile.
void pick_spectrum(int spectrum_slot);

} // namespace kelu
