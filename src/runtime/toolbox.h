// SPDX-License-Identifier: MIT
// What the user draws with: the slots of the drawing menu, colours, tip, and the options of every tool and ink.
#pragma once

#include "base/table.h"
#include "base/words.h"

namespace kelu {

enum ToolId : int {
    TOOL_NONE,
    TOOL_BOX,
    TOOL_CIRCLE,
    TOOL_DRAW,
    TOOL_DRIZ,
    TOOL_EDGE,
    TOOL_FILL,
    TOOL_LINE,
    TOOL_MOVE,
    TOOL_OVAL,
    TOOL_POLY,
    TOOL_RPOLY,
    TOOL_SEP,
    TOOL_FSHAPE,
    TOOL_SSHAPE,
    TOOL_SPIRAL,
    TOOL_SPLINE,
    TOOL_SPRAY,
    TOOL_TEXT,
    TOOL_COUNT
};

constexpr int option_rows = 50;   ///< rows of the two option tables, indexed by tool id and ink id
constexpr int option_columns = 8; ///< options of a row
constexpr int custom_tip = 36;    ///< tip index of the custom tip; 0 to 35 are the sheet's

using OptionTable = Table<Table<Shared<int>, option_columns>, option_rows>;

/// The colour of a favourite that nobody has chosen.
constexpr int unchosen_favorite = 0x9e9e9e;

/// The drawing menu's choices. Owner: the drawing menu. Also written by the tool, ink, tip and colour menus, macros,
/// the state file, and on the timer thread by option buttons and sliders.
/// Writers: draw, workspace, screens.
struct Toolbox {
    Table<Shared<int>, 6> tool_slots{3, 2, 1, 9, 10, 13}; ///< ToolId of each slot, from 1 on
    Table<Shared<int>, 6> ink_slots{13, 0, 1, 3, 4, 22};  ///< InkId of each slot
    Shared<int> tool_slot = 0;                            ///< selected tool slot, 0 to 5
    Shared<int> ink_slot = 0;                             ///< selected ink slot, 0 to 5
    int brush_tip = 0;                                    ///< 0 to 35, 36 the custom tip; set by set_brush_tip alone
    Shared<int> brush_color = 0xffffff;                   ///< packed colour
    Shared<int> mask_color = 0;                           ///< packed colour
    Table<Shared<int>, 100> favorites{};                  ///< colours; the first 10 are in the drawing menu
    Table<Shared<int>, 256> extended_favorites = [] {     ///< colours of the favourites menu
        Table<Shared<int>, 256> colors;
        for (Shared<int>& color : colors)
            color = unchosen_favorite;
        return colors;
    }();
    OptionTable tool_table{};                               ///< options by tool id
    OptionTable ink_table{};                                ///< options by ink id
    Table<std::array<float, 4>, option_rows> ink_derived{}; ///< by ink id: L.GRAD's angle, length, sine, cosine
};
inline Toolbox toolbox;

/// The tool of the selected slot.
inline int current_tool() { return toolbox.tool_slots[int(toolbox.tool_slot)]; }
/// The ink of the selected slot.
inline int current_ink() { return toolbox.ink_slots[int(toolbox.ink_slot)]; }

} // namespace kelu
