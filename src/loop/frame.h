// SPDX-License-Identifier: MIT
// One frame of the program: compose the picture, present it, run the jobs that are due.
#pragma once

#include <cstdint>

namespace kelu {

/// Fills `frame_snapshot` from the live state.
void take_frame_snapshot();
/// Composes one picture in the back buffer, from the snapshot.
void compose_frame(bool waiting);
/// Called for each frame that isn't composed because nothing has changed; null where nobody looks into that. Tests do.
inline void (*still_frame_check)() = nullptr;
/// Frames for which Escape has been down, alone: 1 in the one that sees the press. Main thread.
inline int escape_frames = 0;
/// Composes one picture in the back buffer, where something has changed since the last, and presents it. Not 0 in
/// `no_tool_preview` leaves the tools' previews and the overlay out and draws the cursor as a plain "X". Main thread;
/// runs again inside a job that is a loop.
void run_frame(uint8_t no_tool_preview);
/// run_frame(0), in the form that waits take.
void run_frame_plain();
/// A frame of a long operation that wants to go on: the same without the rest.
void run_frame_in_passing();

} // namespace kelu
