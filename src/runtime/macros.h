// SPDX-License-Identifier: MIT
// Macros: sets of tools, inks, tip and grid that one key puts in place.
#pragma once

#include "base/table.h"
#include <array>

namespace kelu {

constexpr int macro_count = 8;

enum GridMode : int { MACRO_GRID_ON, MACRO_GRID_IGNORE, MACRO_GRID_OFF };

/// One macro. Its start values leave everything alone.
struct Macro {
    std::array<int, 6> tools{};         ///< tool id for each tool slot, 0: leave it
    std::array<int, 6> inks{};          ///< ink id + 1 for each ink slot, 0: leave it
    int tool_slot = -1;                 ///< slot to select, 0 to 5; -1: leave it
    int ink_slot = -1;                  ///< slot to select, 0 to 5; -1: leave it
    int brush_tip = -1;                 ///< tip to select, 0 to 36; -1: leave it
    int grid_mode = MACRO_GRID_IGNORE;  ///< switch the grid on with the values below, leave it, or switch it off
    int grid_w = 0, grid_h = 0;         ///< frame pixels, 2 to 999
    int grid_off_x = 0, grid_off_y = 0; ///< 0 to the pitch - 1
    int grid_opacity = 0;               ///< 0 to 255
};

/// Owner: the macro screen. Also written by the settings file.
/// Writers: screens.
struct Macros {
    Table<Macro, macro_count> macro_table{};
    int macro_current = 0; ///< macro that the screen shows first
};
inline Macros macros;

} // namespace kelu
