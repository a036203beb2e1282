// SPDX-License-Identifier: MIT
// Periodic callbacks and their deadlines, on a clock that is handed in.
//
// A timer whose callback nobody waits for doesn't have the clock's thread woken: what its callback would have left is
// made up at the next occasion, in one step.
#pragma once

#include <array>

namespace kelu::platform {

/// Time in units of 1/1193181 s.
using TimerUnits = long long;
constexpr TimerUnits timer_units_per_second = 1193181;

/// A periodic callback.
struct Timer {
    void (*tick)() = nullptr;
    int period = 0;                 ///< units
    bool (*waited_for)() = nullptr; ///< false: nobody would notice a tick now; null: it is always waited for
    void (*pass)(int n) = nullptr;  ///< does what n ticks do that nobody waited for; null: they do nothing
};

/// The callbacks installed, run in the order of their deadlines and, of one deadline, in the order of installation.
class TimerTable {
public:
    static constexpr TimerUnits never = -1;

    /// Adds a timer, or gives a known callback the new period. False when the table is full.
    bool install(const Timer& timer, TimerUnits now);
    void remove(void (*tick)());
    /// Makes up for the ticks until `now` of the timers that nobody waited for.
    void pass_idle(TimerUnits now);
    /// Runs what is due at `now`; returns the next deadline that somebody waits for, or `never`.
    TimerUnits run(TimerUnits now);

private:
    struct Row {
        Timer timer;
        TimerUnits due = 0;
        bool idle = false; ///< nobody waited for it when the last run ended
    };
    Row* first_due(TimerUnits now);
    TimerUnits look_ahead();

    std::array<Row, 16> rows_{};
};

} // namespace kelu::platform
