// The colour map of the colour menus: its picture is made anew only when what it depends on has changed.
#pragma once

#include "runtime/bitmap.h"
#include <array>

namespace kelu {

/// The last picture of a map and its inputs. Owner: gui/planes. Main thread.
struct PlaneCache {
    Bitmap picture;
    int kind = 0;                  ///< one of the four plane kinds
    std::array<int, 3> channels{}; ///< values of the three sliders
    int renders = 0;               ///< pictures made so far
};
inline PlaneCache plane_cache;

} // namespace kelu
