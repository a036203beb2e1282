// SPDX-License-Identifier: MIT
// The program's window on the desktop: identity, video mode and the showing of pictures. Main thread.
#pragma once

#include "platform/host.h"

namespace kelu::platform {

/// Before Allegro's start: names the window's class, by which desktops group windows.
void name_window_class();
/// After it: a broken connection to the display is noted, and nothing else.
void watch_connection();
/// Enters the mode; its scale, or 0 when it is refused, also when the desktop is smaller than it.
int enter_desktop_mode(const VideoMode& mode);
/// Shows a picture of 320 x 240, scaled. Only the rows that differ from the last picture shown go to the display.
/// `fresh` false: it is that one.
void present_on_desktop(BITMAP* picture, bool fresh);
/// Tells the window manager and other programs who owns the window: title in UTF-8, process, machine.
void describe_window(const char* title);
/// Gives the window an icon in several sizes of at most 256 x 256, with alpha in the top byte.
void set_desktop_icons(std::span<BITMAP* const> pictures);
/// Allegro's image of the window, where its words are those that the display takes, so that a picture may be written
/// straight into it; null otherwise.
BITMAP* window_image();
/// Shows lines of that image. Under Allegro's lock.
void push_image(int top, int height);
/// Sends what Allegro has drawn to the display now. X would keep it until the next request, which comes with the end of
/// the rest. Under Allegro's lock.
void send_requests();
/// False when the connection to the display is broken, which is noted. Under Allegro's lock: a call on such a
/// connection waits for ever.
bool connection_stands();
/// Takes the keys, the mouse and the window's events that have come since, without waiting for Allegro's event thread.
void deliver_input();
/// Sleeps until something comes from the display or for `input_event`, `milliseconds` at most.
void await_input(int milliseconds);
/// True when the picture has not changed for the last 50 presents.
bool picture_stands_still();
/// Leaves the mode, if there is one, and forgets the last picture.
void close_desktop_window();

} // namespace kelu::platform
