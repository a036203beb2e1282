// SPDX-License-Identifier: MIT
// The machine under the program, as a table of calls. The desktop's table drives Allegro on X11; the headless one
// serves tests and tools, and tests replace single calls to make them fail.
#pragma once

#include "platform/clipboard.h"
#include "platform/timer_table.h"
#include <allegro.h>
#include <cstddef>
#include <span>
#include <vector>

namespace kelu::platform {

/// A video mode of the program: a window of 320 x 240 times the scale, or full screen.
struct VideoMode {
    bool fullscreen = false; ///< as large as the screen allows, black around it
    int scale = 2;           ///< 2 to 9 for a window; full screen finds its own
};

/// One call an operation of the system. All run on the main thread; the timers' own threads are the host's affair.
struct Host {
    bool (*start)(); ///< Allegro, timers, keyboard, mouse, close button, signals; false: no display
    /// The scale that the mode has; 0: refused, also when the desktop is smaller than the mode.
    int (*enter_mode)(const VideoMode& mode);
    void (*set_title)(const char* title);
    /// The window's icon, in several sizes of at most 256 x 256, with alpha in the top byte.
    void (*set_icons)(std::span<BITMAP* const> pictures);
    /// Shows a logical picture that has been composed anew, and pushes what has changed; `fresh` false: it is the last.
    void (*present)(BITMAP* picture, bool fresh);
    void (*rest)(int milliseconds); ///< sleeps until input, a call of `rouse` or that long, then delivers the input
    void (*rouse)();                ///< ends that sleep, or the next one; any thread
    void (*wait_vertical_blank)();  ///< sleeps until the display's next picture, then delivers the input
    bool (*install_timer)(const Timer& timer); ///< a known callback gets the new period
    void (*remove_timer)(void (*tick)());
    void (*wake_timers)();                ///< brings counters up to date, and looks anew at which timers are waited for
    bool (*timers_sleep)();               ///< true while none is waited for: nothing moves but by input
    void (*position_mouse)(int x, int y); ///< physical pixels
    bool (*offer_clipboard)(std::vector<ClipboardItem> items);                               ///< as `clipboard_offer`
    ClipboardItem (*take_clipboard)(std::span<const char* const> wanted, std::size_t limit); ///< as `clipboard_take`
    void (*show_message)(const char* text); ///< a box that the user closes; never hangs behind our own window
    void (*stop)();                         ///< leaves Allegro in order, after the timers
};

/// Allegro on X11.
extern const Host desktop_host;
/// No display: bitmaps and files only, and a clipboard of its own. Timers do nothing, rests return at once.
extern const Host headless_host;

/// The table in use: `desktop_host` in the program. Set before the start, by main or by a test.
inline const Host* host = &headless_host;

} // namespace kelu::platform
