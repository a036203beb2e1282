// SPDX-License-Identifier: MIT
// The slots of the macro screen, and how they show a record.
#pragma once

#include "draw/ink_rows.h"
#include "gui/strings.h"
#include "runtime/macros.h"
#include "screens/list_popup.h"

namespace kelu {

enum MacroSlot : int {
    MACRO_SLOT_NUMBER_1 = 2,
    MACRO_SLOT_TOOL_0 = 10,
    MACRO_SLOT_INK_0 = 16,
    MACRO_SLOT_BRUSH_CAPTION = 22,
    MACRO_SLOT_INK_CAPTION,
    MACRO_SLOT_GRID_CAPTION,
    MACRO_SLOT_GRID_MODE_0 = 25, ///< + GridMode
    MACRO_SLOT_FIELD_0 = 29,     ///< + 2 x field; the caption before it
    MACRO_SLOT_OPACITY_CAPTION = 36,
    MACRO_SLOT_OPACITY,
    MACRO_SLOT_TIP_CAPTION,
    MACRO_SLOT_TIP,
    MACRO_SLOT_OKAY,
    MACRO_SLOT_CANCEL,
    MACRO_SLOTS
};

constexpr int macro_choices = 6; ///< tool slots, ink slots
constexpr int macro_grid_modes = 3;

/// One of the two blocks of six slots: what a record says of them.
struct MacroBlock {
    int first_slot, y;                ///< its top left slot, and that one's place in the window
    std::array<int, 6> Macro::*words; ///< 0: the slot is left alone
    int Macro::*selected;
    ListPopup list; ///< row 0 is no choice, row n the word n
};
inline constexpr std::array macro_blocks{
    MacroBlock{MACRO_SLOT_TOOL_0,
               23,
               &Macro::tools,
               &Macro::tool_slot,
               {first_tool_name, TOOL_COUNT, TOOL_COUNT - 8, 72, TEXT_UNUSED}},
    MacroBlock{MACRO_SLOT_INK_0,
               57,
               &Macro::inks,
               &Macro::ink_slot,
               {first_ink_name - 1, INK_COUNT + 1, INK_COUNT - 7, 72, TEXT_UNUSED}},
};

/// Writes the slots, filled from the record; `shown` is the number of the macro.
void build_macro_menu(int shown, const Macro& record);
/// Shows a part of a record: the slots of a block, the grid's mode, the tip.
void show_macro_block(const MacroBlock& block, const Macro& record);
void show_macro_grid_mode(const Macro& record);
void show_macro_tip(const Macro& record);
/// The numbers that are in the fields go into the record. Text that is no number is 0.
void store_macro_fields(Macro& record);

} // namespace kelu
