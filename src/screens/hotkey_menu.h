// SPDX-License-Identifier: MIT
// The hotkey screen: a primary and an alternate key for every action.
#pragma once

namespace kelu {

/// Runs the screen. Keys change as they are set; CANCEL brings the old ones back. The caller clears nothing before it
/// and builds the drawing menu after it.
void hotkey_menu();

} // namespace kelu
