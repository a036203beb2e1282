// SPDX-License-Identifier: MIT
// The screen that flips, mirrors and turns the cel.
#pragma once

namespace kelu {

/// Runs the screen: OKAY keeps the changed cel, CANCEL and the program's exit bring the old one back. The drawing menu
/// comes back in the end.
void cel_transform();

} // namespace kelu
