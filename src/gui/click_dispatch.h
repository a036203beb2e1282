// SPDX-License-Identifier: MIT
// From a released button to the slot: what each action code does.
#pragma once

namespace kelu {

/// Does the action that the capture has noted, once the buttons are up, and ends the capture. Writes event words, kinds
/// of buttons and option values, and nothing else. Timer thread.
void dispatch_click();

} // namespace kelu
