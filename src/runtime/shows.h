// SPDX-License-Identifier: MIT
// Whether the next frame has anything new to show.
//
// A frame is composed only when something that shows may have changed. Few owners tell: the input, the table of the
// GUI, jobs, and the values that timers move and the frame's snapshot holds. All else changes in answer to these, on
// the main thread and within the frames after them, which are composed for that reason: `lively` counts them. What
// changes by itself, as the steps of a long work do, calls `something_shows`.
#pragma once

#include "base/words.h"
#include <cstdint>

namespace kelu {

/// Writers: gui, draw.
struct Shows {
    Published<uint8_t> changed = 1; ///< 1: something has changed; any thread sets it, picture_is_due takes it
    Shared<int> lively = 0;         ///< frames that are still composed after the last change or input; main thread
    // What of the timers' values painters have used since the last picture began: it moves with them.
    Shared<uint8_t> dashes = 0; ///< 1: the phase of the dashes
    Shared<uint8_t> pulse = 0;  ///< 1: the pulse of highlights
};
inline Shows shows;

/// To be called by whoever changes what shows without input, a slot or a job being the reason. Any thread.
inline void something_shows() { shows.changed = 1; }

/// Has this frame and those of the next 0.3 s composed, and the timers tick meanwhile. Main thread.
void stay_lively();
/// Decides whether this frame is composed. `forced`: it is wanted in any case. Main thread, once a frame, behind the
/// snapshot.
bool picture_is_due(bool forced);
/// Milliseconds that the frame limiter has a frame sleep, 0 where nothing is limited.
int limiter_rest();

} // namespace kelu
