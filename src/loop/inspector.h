// SPDX-License-Identifier: MIT
// The colour inspector: the values of the frame pixel under the pointer, beside it. Main thread.
#pragma once

#include "base/bitmap.h"
#include <cstdint>

namespace kelu {

/// Owner: the inspector's key.
struct Inspector {
    uint8_t inspector_on = 0; ///< 1: it shows
};
inline Inspector inspector;

/// On or off.
void flip_inspector();
/// Draws the inspector. Away from menus and while nothing is being measured.
void draw_inspector(BITMAP* target);

} // namespace kelu
