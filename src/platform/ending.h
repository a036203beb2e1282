// SPDX-License-Identifier: MIT
// What asks the program to end from outside: signals, and a display that goes away.
//
// A system that goes down doesn't wait for the user, and without a display there is none: both set `end_now`, upon
// which every loop returns as by its CANCEL. Only a long operation has no loop that returns; after a while of patience
// the main thread ends the program from inside it, and the work is kept.
#pragma once

namespace kelu::platform {

/// From here on the signals TERM, INT, HUP and QUIT ask the program to end.
void end_on_signals();
/// Back to the system's own way: they kill the program.
void release_signals();

/// The display has gone: any thread. No call may reach it from here on, since it could wait for ever.
void note_display_lost();
bool display_lost();
/// True once a signal or a display that has gone has asked for the end: nobody answers a question any more.
bool asked_from_outside();

/// Once a frame, main thread: calls `end_at_once` when the program is to end now for longer than that may take.
/// While the workspace is being transferred (`timers_locked`) it waits on.
void end_when_overdue();

/// Keeps the work and ends the process. Set by start-up.
inline void (*end_at_once)() = nullptr;

} // namespace kelu::platform
