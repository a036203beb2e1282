// One frame of the program: compose the picture, present it, run the jobs that are due.
#pragma once

#include "base/words.h"
#include <cstdint>

namespace kelu {

/// Composes one picture in the back buffer and presents it. Not 0 in `no_tool_preview` leaves the tools' previews and
/// the overlay out and draws the cursor as a plain "X". Main thread; runs again inside a job that is a loop.
void run_frame(uint8_t no_tool_preview);
/// run_frame(0), in the form that waits take.
void run_frame_plain();

/// Flags that loops set for the next frames.
struct FrameFlags {
    Shared<uint8_t> vsync_once = 0; ///< 1: the next present waits for the display; the tools, and pans on the timer
    uint8_t clean_render = 0;       ///< 1: only the picture, unpresented; the colour dropper
};
inline FrameFlags frame_flags;

} // namespace kelu
