// SPDX-License-Identifier: MIT
// Full screen by the window manager's own way: the manager makes our window as large as the screen, without a border,
// and the user leaves it by the manager's keys as any other window. The picture, a window inside ours, lies in its
// middle, and around it is black.
#pragma once

namespace kelu::platform {

struct Extent {
    int w = 0, h = 0;
};

/// True when there is a window manager that makes windows fill the screen.
bool manager_offers_full_screen();
/// Asks it to do so with our window, which is mapped and as large as the picture. Waits for the answer, for five
/// seconds at most; the window's new size, or 0 x 0 when there is none. From then on the picture stays in the window's
/// middle and the pointer has the picture's positions, wherever over the window it is.
Extent ask_for_full_screen();
/// Puts the picture back into the window's corner, for a mode of another kind.
void leave_full_screen();
/// Follows a change of the window's size. Under Allegro's lock, by whoever has read the events.
void follow_full_screen();

} // namespace kelu::platform
