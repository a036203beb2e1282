// SPDX-License-Identifier: MIT
// The colour menu: where a colour is made, in four colour spaces, for the brush, the mask or another screen.
#pragma once

#include "base/words.h"

namespace kelu {

/// What the menu edits.
enum class ColorTarget {
    BRUSH, ///< the brush colour, in place
    MASK,  ///< the mask colour, in place
    VALUE  ///< a colour of the caller's: brush and mask stay as they are
};

/// Owner: the colour menu. Written by the logic tick at a click on a tab.
struct ColorMenuState {
    Shared<int> wanted_tab = 0; ///< 1 + the Colorspace of a tab that was clicked, 0 none
};
inline ColorMenuState color_menu_state;

/// Runs the menu; `value` is the start of a ColorTarget::VALUE. Returns the colour as it was left. The caller clears
/// the slots and builds its own menu.
int color_menu(ColorTarget target, int value = 0);

/// Asks the menu for another colour space, 0 to 3. Timer thread: the menu itself does the work in its next pass.
void request_colour_tab(int tab);

} // namespace kelu
