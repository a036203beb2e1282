// The machine under the program, as a table of calls. The desktop's table drives Allegro on X11; the headless one
// serves tests and tools, and tests replace single calls to make them fail.
#pragma once

#include <allegro.h>
#include <span>

namespace kelu::platform {

/// A video mode of the program: full screen or a window, at 320 x 240 times the scale.
struct VideoMode {
    bool fullscreen = false;
    int scale = 2; ///< 2 to 9
};

/// One call an operation of the system. All run on the main thread; the timers' own threads are the host's affair.
struct Host {
    bool (*start)(); ///< Allegro, timers, keyboard, mouse, close button, signals; false: no display
    bool (*enter_mode)(const VideoMode& mode); ///< false: refused, also when the desktop is smaller than the mode
    void (*set_title)(const char* title);
    /// The window's icon, in several sizes of at most 256 x 256, with alpha in the top byte.
    void (*set_icons)(std::span<BITMAP* const> pictures);
    void (*present)(BITMAP* picture); ///< shows a logical picture; pushes nothing when nothing has changed
    void (*rest)(int milliseconds);   ///< sleeps, longer while nothing moves, then delivers the input come meanwhile
    void (*wait_vertical_blank)();    ///< the same, until the display's next picture
    bool (*install_timer)(void (*tick)(), int period); ///< period in 1/1193181 s; again: changes the period
    void (*remove_timer)(void (*tick)());
    void (*position_mouse)(int x, int y);   ///< physical pixels
    void (*show_message)(const char* text); ///< a box that the user closes; never hangs behind our own window
    void (*stop)();                         ///< leaves Allegro in order, after the timers
};

/// Allegro on X11.
extern const Host desktop_host;
/// No display: bitmaps and files only. Timers do nothing, rests return at once.
extern const Host headless_host;

/// The table in use: `desktop_host` in the program. Set before the start, by main or by a test.
inline const Host* host = &headless_host;

} // namespace kelu::platform
