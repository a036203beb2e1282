// Signals that ask the program to end.
#pragma once

namespace kelu::platform {

/// From here on TERM, INT and HUP set `exit_requested`, so that the work is kept.
void end_on_signals();
/// Back to the system's own way: they kill the program.
void release_signals();

} // namespace kelu::platform
