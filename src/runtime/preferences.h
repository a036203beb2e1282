// SPDX-License-Identifier: MIT
// The user's options. Owner: the options screen; the settings file and the workspace state fill them at start.
#pragma once

#include "base/words.h"
#include <cstdint>

namespace kelu {

/// One word an option. `Shared` where a slider or radio writes through on the timer thread or a tick reads.
/// Writers: workspace, loop, screens.
struct Preferences {
    Shared<int> mouse_swap = 1;            ///< 0: the GUI's primary button is the left one, else the right one
    Shared<uint8_t> power_save = 1;        ///< 1: the frame limiter acts; no menu changes it
    int sample_volume = 128;               ///< 0 to 255, stored only
    int music_volume = 128;                ///< 0 to 255, stored only
    Shared<int> undo_depth = 3;            ///< slots of each undo queue, 1 to 12
    Shared<int> show_tool_distance = 0;    ///< 1: tools and cels show their size
    Shared<int> anti_jitter = 1;           ///< 1: a press takes the position at which the pointer last stood still
    Shared<int> frame_limiter = 2;         ///< 0 waits for the display, 1 sleeps 2 ms, 2 sleeps 10 ms a frame
    Shared<int> color_reduction = 0;       ///< to 256 colours: 0 fast, 1 good, 2 best
    Shared<int> zoom_preview_on = 0;       ///< 1: the zoom preview window is shown while zoomed
    Shared<int> zoom_preview_size = 1;     ///< 1 small, 2 medium, 3 large
    Shared<int> crosshair_opacity = 13;    ///< 0 (off) to 255
    Shared<int> crosshair_scaling = 1;     ///< 1: the bars are as wide as a frame pixel
    Shared<int> crosshair_color = 0;       ///< 0 white, 1 grey, 2 black
    Shared<int> cel_masking = 1;           ///< 1: the mask colour is background in a cel
    Shared<int> cel_tolerance = 5;         ///< how far a pixel may differ from the mask colour, 0 to 255
    Shared<int> status_bar_on = 1;         ///< 1: the status bar shows
    Shared<int> status_font = 1;           ///< 0 narrow, 1 wide; not kept between runs
    Shared<int> status_opacity = 160;      ///< of the status bar's ground, 0 to 255; not kept between runs
    Shared<int> tooltips_on = 0;           ///< 1: tooltips show in the status bar
    Shared<int> backless_mode = 0;         ///< 1: windows draw no panel
    Shared<int> cursor_scaling_off = 0;    ///< 1: the cursor is drawn above the menus at its plain size
    int mouse_speed = 4;                   ///< stored only
    Shared<int> file_preview_mode = 2;     ///< 0 none, 1 all, 2 up to the limit
    Shared<int> file_preview_limit_mb = 2; ///< megabytes, 0 to 64; not kept between runs
    Shared<int> quickpan_opacity = 225;    ///< 0 to 255
    Shared<int> cursor_tip = 0;            ///< the pointer shows the tip: 0 none, 1 inline, 2 outline; workspace state
};
inline Preferences preferences;

} // namespace kelu
