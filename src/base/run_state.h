// SPDX-License-Identifier: MIT
// Flags of the run and the size of the screen.
#pragma once

#include "base/bitmap.h"
#include "base/words.h"
#include <cstdint>
#include <string>

namespace kelu {

/// Flags of the run. Written by start-up, shutdown and the callers named.
/// Writers: platform, runtime, workspace, loop, screens.
struct RunState {
    Shared<uint8_t> exit_requested = 0; ///< 1: the drawing menu returns at its next pass; close button, signals, QUIT
    Shared<uint8_t> end_now = 0;        ///< 1: every loop returns as by its CANCEL; a second request, signals
    Shared<uint8_t> close_button_pressed = 0; ///< 1: set together with it by the close button
    Shared<uint8_t> timers_locked = 1;        ///< 1: actor, behaviour and script timers return at once; also workspace/
    Shared<uint8_t> gui_active = 0;           ///< 1 from the main loop on: clicks are dispatched and job delays run
    Shared<uint8_t> gui_clicks_enabled = 0;   ///< 1: presses on slots are started; also the dragging of a window
    uint8_t workspace_damaged = 0;            ///< 1: the drawing menu reports repairs at its next pass; workspace/
    int start_month = 0;                      ///< month of the start, 0 to 11
    int start_day = 1;                        ///< day of the month of the start
    std::string program_dir; ///< folder of the user's work and settings, no separator at its end: the executable's own,
                             ///< or one below the user's home where the program is installed
    std::string art_dir;     ///< folder that resource/ and fonts/ as delivered lie in; empty: `program_dir`
    std::string current_dir; ///< folder that workspace and browser routines go back to
};
inline RunState run_state;

/// A folder of what is delivered, "resource" or "fonts"; relative where it lies in `program_dir`.
inline std::string delivered_folder(const std::string& name)
{
    return run_state.art_dir.empty() ? name : run_state.art_dir + "/" + name;
}

/// A request to end the program: the first one lets the user leave what is open, the next one doesn't wait for that.
/// Any thread.
inline void request_end()
{
    if (run_state.exit_requested != 0) run_state.end_now = 1;
    run_state.exit_requested = 1;
}

/// The logical screen and how it is shown. Written by start-up.
struct Screen {
    int screen_w = 640;     ///< physical width of the picture, in screen pixels
    int screen_h = 480;     ///< physical height
    int screen_scale = 2;   ///< physical pixels for a logical one, 2 to 9
    Bitmap back_buffer;     ///< logical size: a frame's whole picture is composed here
    Bitmap screen_buffer_a; ///< logical size: frozen picture of a menu behind a pop-up, magenta where empty
    Bitmap tool_overlay;    ///< logical size: rubber bands and previews of the tools, magenta where empty
    Bitmap preview_bitmap;  ///< 117 x 79: thumbnail of the file browser
};
inline Screen screen_state;

constexpr int logical_w = 320; ///< width of the logical screen, in every mode
constexpr int logical_h = 240; ///< height of the logical screen

/// Colours that start-up fixes. Inks, panels and crosshairs use them.
struct FixedColours {
    int white = 0xffffff, light_grey = 0xdbdbdb, black = 0x000000, menu_grey = 0x9e9e9e;
    int dark_grey = 0x646464, darker_grey = 0x3a3a3a, red = 0xff0000;
};
inline constexpr FixedColours fixed_colours;

} // namespace kelu
