// SPDX-License-Identifier: MIT
// Where the user looks at the frame.
#pragma once

#include "base/words.h"
#include <array>

namespace kelu {

constexpr int max_frames = 100; ///< frames of a workspace
constexpr int max_zoom = 6;     ///< highest zoom level; the factor of level z is 1 << (z - 1)

/// The live view and the one each frame was left with. Owner: view control. Also written by the frame store (a
/// fetched frame's view), the state file, and on the timer thread by pans and the wheel.
/// Writers: framework, workspace, loop, tools, screens.
struct View {
    Shared<int> zoom = 1;                             ///< level 1 to 6
    Shared<int> pan_x = 0, pan_y = 0;                 ///< frame pixel at the screen's top left corner, may be negative
    Shared<int> frame_mouse_x = 0, frame_mouse_y = 0; ///< frame pixel under the pointer
    Shared<int> view_center_x = 0, view_center_y = 0; ///< frame pixel in the middle of the view
    Shared<int> frame_w = 2, frame_h = 2;             ///< size of frame_bitmap, for the timers; note_frame_size
    std::array<float, 7> view_w{}, view_h{};          ///< frame pixels in view at each level; entry 0 as entry 1
    std::array<int, max_frames> frame_pan_x{}, frame_pan_y{}; ///< view position when the frame was left
    std::array<int, max_frames> frame_zoom = [] {             ///< zoom level when the frame was left
        std::array<int, max_frames> levels{};
        levels.fill(1);
        return levels;
    }();
    int backdrop = 0;               ///< checker tile behind a small frame, 0 dark to 2 light; frame store
    Shared<int> onion_on = 0;       ///< 1: the onion skin shows
    Shared<int> onion_opacity = 64; ///< 0 to 255
};
inline View view;

/// Fills the tables of frame pixels in view: 320 and 240, halved from level to level.
void fill_view_tables();
/// Recomputes the frame pixel under the pointer and the one in the middle of the view. Timer thread at every logic
/// tick, and whoever has moved the view.
void update_mouse_position();
/// Holds the pan in its range: the frame may be pushed off by half a view on each side.
void clamp_pan();
/// One zoom level in (1) or out (0); the frame pixel under the pointer stays there as far as the clamp allows.
void zoom_step(int in);
/// Zoom level 1 with the frame in the middle of the screen.
void center_view();

/// Tells the timers the size of the frame: they can't look at a bitmap that the main thread may be replacing. run_frame
/// calls it, and so does whoever replaces frame_bitmap and needs the pan held before the next frame.
void note_frame_size();

/// The zoom factor of the live level: 1, 2, 4, 8, 16 or 32.
inline int zoom_factor() { return 1 << (view.zoom - 1); }

} // namespace kelu
