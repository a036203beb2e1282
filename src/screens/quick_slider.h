// SPDX-License-Identifier: MIT
// The option keys: flip or slide the first option of the current tool or ink.
#pragma once

namespace kelu {

/// Action 40 on the current tool, action 41 on the current ink.
void brush_option_hotkey();
void ink_option_hotkey();

} // namespace kelu
