// SPDX-License-Identifier: MIT
// The values that one frame's picture shows, copied at its start, since the timers go on writing the originals.
#pragma once

#include <array>

namespace kelu {

/// Written by `take_frame_snapshot` alone, at the head of run_frame; painters read it. Main thread.
struct FrameSnapshot {
    int mouse_x = 0, mouse_y = 0;             ///< pointer, logical pixels
    int frame_mouse_x = 0, frame_mouse_y = 0; ///< pointer, frame pixels
    int zoom = 1;                             ///< level 1 to 6
    int factor = 1;                           ///< logical pixels for a frame pixel: 1 << (zoom - 1)
    int pan_x = 0, pan_y = 0;                 ///< frame pixel at the screen's top left corner
    int backdrop = 0;                         ///< checker tile behind the frame, 0 to 2
    int dash_phase = 0;                       ///< 0 to 31
    int pulse = 0;                            ///< of highlights, 0 to about 98
    int caret = 0;                            ///< 1: a field has the keys, and its caret shows now
    int tooltip_slot = -1;                    ///< slot whose tooltip shows, -1 none
    std::array<int, 4> tint{};                ///< red, green, blue and opacity of the screen's tint
    int status_message = 0;                   ///< row of the message table, 0 none, -1 coordinates only
    int hover_slot = -1;                      ///< slot under the pointer, -1 none

    bool operator==(const FrameSnapshot&) const = default;
};
inline FrameSnapshot frame_snapshot;

} // namespace kelu
