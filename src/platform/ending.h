// What asks the program to end from outside: signals, and a display that goes away.
//
// Both set `exit_requested`, which the home screen sees at its next pass. A menu that is open stays open until its user
// closes it; but a system that goes down doesn't wait, and without a display there is no user. So after a while of
// patience the main thread ends the program from where it is, and the work is kept.
#pragma once

namespace kelu::platform {

/// From here on the signals TERM, INT, HUP and QUIT ask the program to end.
void end_on_signals();
/// Back to the system's own way: they kill the program.
void release_signals();

/// The display has gone: any thread. No call may reach it from here on, since it could wait for ever.
void note_display_lost();
bool display_lost();

/// Once a frame, main thread: calls `end_at_once` when the program has been asked to end for longer than it may take.
/// While the workspace is being transferred (`timers_locked`) it waits on.
void end_when_overdue();

/// Keeps the work and ends the process. Set by start-up.
inline void (*end_at_once)() = nullptr;

} // namespace kelu::platform
