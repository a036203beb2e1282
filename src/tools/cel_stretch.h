// SPDX-License-Identifier: MIT
// Pasting the cel stretched between two corners, turned over where they run backwards.
#pragma once

namespace kelu {

/// Runs the whole of it: a corner, the size, moving and resizing, and the paste through the current ink. A right click
/// anchors, or cancels while the size follows the mouse.
void cel_stretch();

} // namespace kelu
