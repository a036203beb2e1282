// SPDX-License-Identifier: MIT
// The process lock for the time of a block.
#pragma once

#include "base/run_state.h"

namespace kelu {

/// Holds the passes of actors, behaviours and scripts out while a workspace is being replaced.
class TimersLock {
public:
    TimersLock() : before_(run_state.timers_locked) { run_state.timers_locked = 1; }
    ~TimersLock() { run_state.timers_locked = before_; }
    TimersLock(const TimersLock&) = delete;
    TimersLock& operator=(const TimersLock&) = delete;

private:
    uint8_t before_;
};

} // namespace kelu
