// SPDX-License-Identifier: MIT
// One sleep a deadline.
#include "platform/timer_thread.h"

#include "base/words.h"
#include "platform/wake_event.h"
#include <algorithm>
#include <chrono>
#include <mutex>
#include <optional>
#include <sys/prctl.h>
#include <thread>

namespace kelu::platform {
namespace {

constexpr unsigned long oversleep_ns = 1000000; ///< lets the kernel bring wake-ups together
/// However little is waited for, counters are never further behind than this.
constexpr long long longest_sleep_ns = 500000000;

/// Owner: this file.
struct TimerThread {
    std::mutex running; ///< held while callbacks run and while the table changes
    TimerTable table;
    WakeEvent wake;
    Shared<uint8_t> ends = 0;   ///< 1: the thread returns
    Shared<uint8_t> sleeps = 0; ///< 1: no timer is waited for
    std::thread thread;
};
std::optional<TimerThread> timers;

constexpr long long ns_per_second = 1000000000;

TimerUnits units_now()
{
    const long long ns = std::chrono::steady_clock::now().time_since_epoch().count();
    return ns / ns_per_second * timer_units_per_second + ns % ns_per_second * timer_units_per_second / ns_per_second;
}

long long ns_until(TimerUnits deadline)
{
    if (deadline == TimerTable::never) return longest_sleep_ns;
    const TimerUnits left = deadline - units_now();
    return left <= 0 ? 0 : std::min(left * ns_per_second / timer_units_per_second + 1, longest_sleep_ns);
}

void run_timers()
{
    prctl(PR_SET_TIMERSLACK, oversleep_ns, 0, 0, 0);
    while (timers->ends == 0) {
        TimerUnits next = 0;
        {
            const std::lock_guard lock(timers->running);
            next = timers->table.run(units_now());
        }
        timers->sleeps = next == TimerTable::never ? 1 : 0;
        timers->wake.wait(ns_until(next));
    }
}

} // namespace

void start_timer_thread()
{
    if (timers) return;
    timers.emplace();
    timers->thread = std::thread(run_timers);
}

void stop_timer_thread()
{
    if (!timers) return;
    timers->ends = 1;
    timers->wake.signal();
    timers->thread.join();
    timers.reset();
}

bool install_timer_row(const Timer& timer)
{
    if (!timers) return false;
    {
        const std::lock_guard lock(timers->running);
        if (!timers->table.install(timer, units_now())) return false;
    }
    wake_timers();
    return true;
}

void remove_timer_row(void (*tick)())
{
    if (!timers) return;
    const std::lock_guard lock(timers->running);
    timers->table.remove(tick);
}

void wake_timers()
{
    if (!timers) return;
    {
        const std::lock_guard lock(timers->running);
        timers->table.pass_idle(units_now());
    }
    timers->sleeps = 0;
    timers->wake.signal();
}

bool timers_sleep() { return timers && timers->sleeps != 0; }

} // namespace kelu::platform
