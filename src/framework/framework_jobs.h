// SPDX-License-Identifier: MIT
// The framework's share of the job queue: what its timer passes leave for the main thread to do.
#pragma once

namespace kelu {

/// Makes the framework serve its job types. Called once at start; `run_frame` runs one frame of the program, for waits.
void register_framework_jobs(void (*run_frame)());
/// Runs frames until an actor has gone; a line in the log for one that may not be waited for. Main thread.
void pause_for_object(int who);

} // namespace kelu
