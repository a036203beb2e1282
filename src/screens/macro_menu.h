// SPDX-License-Identifier: MIT
// Macros: running one, and the screen that edits the eight of them.
#pragma once

#include "runtime/macros.h"

namespace kelu {

/// Puts in place what macro `slot`, 0 to 7, names, and leaves the rest; builds the drawing menu. Any other slot is
/// refused with a line in the log.
void exec_macro(int slot);
/// The same as a command of its own.
template <int slot>
void run_macro()
{
    exec_macro(slot);
}

/// Runs the screen on the macro that it showed last. Builds the drawing menu at the end.
void macro_menu();

/// A record as it may be kept: a grid that can't be switched on becomes one that is left alone, and what the grid mode
/// doesn't use is zeroed.
Macro valid_macro(Macro record);

} // namespace kelu
