// SPDX-License-Identifier: MIT
// The measurement from an anchor to the pointer: a key starts and ends it, and tools show their size with it.
#pragma once

#include <cstdint>

namespace kelu {

/// Owner: the view's measurement. Also written by the tools and by draw/cel while `measure_state` is 0. Main thread.
/// Writers: loop, tools, screens.
struct Measure {
    int measure_x = -1, measure_y = -1; ///< anchor in frame pixels; measure_x -1: none
    int measure_state = 0;           ///< 0 none or a tool's own; 1 key still held from the start; 2 running; 3 ending
    uint8_t measure_is_distance = 0; ///< 1: a tool wants the plain distance, else a size
};
inline Measure measure;

} // namespace kelu
