// SPDX-License-Identifier: MIT
// The strip of buttons over the frame: the slots of the home screen, which every tool and screen brings back.
#pragma once

namespace kelu {

/// Slots of the strip.
enum HomeSlot : int {
    SLOT_WINDOW,
    SLOT_HOME,
    SLOT_FRAME,
    SLOT_UNDO,
    SLOT_TOOL_0,
    SLOT_TOOL_5 = SLOT_TOOL_0 + 5,
    SLOT_INK_0,
    SLOT_INK_5 = SLOT_INK_0 + 5,
    SLOT_PIC,
    SLOT_CEL,
    SLOT_USER,
    SLOT_MASK,
    SLOT_BRUSH,
    SLOT_TIP,
    SLOT_SPECTRUM,
    SLOT_FAVORITE_0,
    SLOT_FAVORITE_9 = SLOT_FAVORITE_0 + 9
};

/// Owner: this file; a macro brings the strip back.
/// Writers: screens.
struct HomeStrip {
    int hidden_by_user = 0; ///< 1: the strip comes back hidden, as the user has left it
};
inline HomeStrip home_strip;

/// Writes the strip's slots at its stored place. Called whenever a screen comes back to it; a strip that the user had
/// hidden is hidden again.
void build_draw_menu();
/// Hides the strip, or brings it back, for the user.
void flip_draw_menu();

} // namespace kelu
