// SPDX-License-Identifier: MIT
// The table of everything that a key or a spare mouse button can do.
#pragma once

#include "loop/actions.h"

namespace kelu {

/// The rows, one an action, in the order of their ids.
std::span<const ActionRow> action_table();
/// Zeroes the hotkey table and writes the default keys.
void set_default_hotkeys();

} // namespace kelu
