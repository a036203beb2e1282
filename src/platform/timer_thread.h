// SPDX-License-Identifier: MIT
// The thread that runs the timers' callbacks, one after the other, and sleeps until the next one that matters.
#pragma once

#include "platform/timer_table.h"

namespace kelu::platform {

/// Starts the thread. Main thread, as are the calls below.
void start_timer_thread();
/// Ends it; no callback runs any more.
void stop_timer_thread();
/// As TimerTable::install and remove. No callback runs meanwhile; never to be called by one.
bool install_timer_row(const Timer& timer);
void remove_timer_row(void (*tick)());
/// Brings the counters of timers that nobody waited for up to date, and has the thread look anew at which are.
void wake_timers();
/// True while it sleeps with no timer waited for: nothing moves but by input.
bool timers_sleep();

} // namespace kelu::platform
