// SPDX-License-Identifier: MIT
// The colour map of the colour menus: its picture is made anew only when what it depends on has changed.
#pragma once

#include "base/bitmap.h"
#include <array>
#include <cstddef>

namespace kelu {

/// The last picture of a map and its inputs. Owner: gui/planes. Main thread.
struct PlaneCache {
    Bitmap picture;
    int kind = 0;                  ///< one of the four plane kinds
    std::array<int, 3> channels{}; ///< values of the three sliders
    int renders = 0;               ///< pictures made so far
};
inline PlaneCache plane_cache;

/// Which of the three sliders run across and down a map, and the step of 256 that one of their values is.
struct PlaneAxes {
    std::size_t across, down;
    int scale;
};
/// Of a plane kind.
PlaneAxes plane_axes(int kind);

} // namespace kelu
