// SPDX-License-Identifier: MIT
// The animation's frames, their delays and its speed.
#pragma once

namespace kelu {

/// Runs the selection screen until OKAY, or CANCEL, which gives everything back.
void animation_menu();

} // namespace kelu
