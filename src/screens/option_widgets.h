// SPDX-License-Identifier: MIT
// The widgets that set the options of a tool or an ink.
#pragma once

#include "draw/draw_options.h"
#include "runtime/toolbox.h"

namespace kelu {

constexpr int first_option_slot = 13; ///< slots of the options area: a toggle takes one, a slider two
constexpr int option_slots = 4;

/// Builds the widgets of a tool or an ink, whose values are in `table`, in the options area of the menu whose corner
/// is (x, y). `toggle_action` is the action of its toggles.
void build_option_widgets(const DrawChoice& choice, OptionTable& table, int toggle_action, int x, int y);

} // namespace kelu
