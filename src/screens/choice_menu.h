// SPDX-License-Identifier: MIT
// The brush tool menu and the ink menu: what the six slots of each hold, and the options of what is chosen.
#pragma once

namespace kelu {

/// Runs the brush tool menu on a tool slot, 0 to 5. Picks go straight into the slot and the options. The caller clears
/// the slots and builds the drawing menu.
void brush_tool_menu(int slot);
/// The same for an ink slot. May end in the placing of a gradient.
void ink_menu(int slot);

} // namespace kelu
