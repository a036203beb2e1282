// SPDX-License-Identifier: MIT
// What other programs say to our window beside input: the window manager's question whether we are alive, and files
// that are dragged over the window and dropped on it.
//
// Allegro's event thread takes the window's events and passes over these. We see them where the connection's bytes
// become events, and answer from the same thread, so that the program counts as alive while the main thread is busy.
#pragma once

namespace kelu::platform {

/// Once Allegro has its window: listens, and tells other programs that files may be dropped on it.
void listen_to_messages();

} // namespace kelu::platform
