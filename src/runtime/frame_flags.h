// SPDX-License-Identifier: MIT
// Flags that loops set for the frames to come.
#pragma once

#include "base/words.h"
#include <cstdint>

namespace kelu {

/// Flags that loops set for the next frames.
/// Writers: loop, screens.
struct FrameFlags {
    Shared<uint8_t> vsync_once = 0; ///< 1: the next present waits for the display; the tools, and pans on the timer
    uint8_t clean_render = 0;       ///< 1: only the picture, unpresented; the colour dropper
    uint8_t in_passing = 0;         ///< 1: a long operation shows how far it is, and doesn't rest over it
};
inline FrameFlags frame_flags;

} // namespace kelu
