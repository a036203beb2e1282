// SPDX-License-Identifier: MIT
// Counters that the timers move and the main thread reads, and the table of timers.
//
// The nine callbacks run one after the other on Allegro's timer thread. They move state and draw nothing; they
// neither allocate, lock, wait nor, in the ordinary case, log.
#pragma once

#include "base/words.h"
#include <array>
#include <cstdint>
#include <span>

namespace kelu {

/// Written by the timer callbacks named; the main thread reads, and zeroes where said.
/// Writers: gui, framework, loop, tools, screens.
struct Clock {
    Shared<int> wait_counter = 0;           ///< 500 Hz, free-running; zeroed by whoever waits on it
    Shared<uint8_t> waited_on = 0;          ///< 1: somebody waits on it now, and the clock ticks for that alone
    Shared<int> hold_counter = 0;           ///< 500 Hz, free-running; zeroed by the keys that tell a tap from a hold
    Shared<int> idle_counter = 0;           ///< 500 Hz up to 1000; zeroed by the file browser
    Shared<int> phase_counter = 0;          ///< 500 Hz, 0 to 499
    std::array<Shared<uint8_t>, 9> phase{}; ///< entry k = 1 to 8 counts each time phase_counter is divisible by k
    Shared<uint8_t> world_phase_a = 0;      ///< 45 Hz, +1 modulo 256
    Shared<int> world_phase_b = 0;          ///< 45 Hz, -1 modulo 128
    Shared<int> marching_ants_phase = 0;    ///< 45 Hz, 0 to 31: offset of the dashes of selections
    Shared<uint8_t> slow_phase_a = 0, slow_phase_b = 0; ///< 45 Hz, +1 modulo 256
    Shared<uint8_t> fast_phase_a = 0, fast_phase_b = 0; ///< 45 Hz, +2 modulo 256
    Shared<int> fixed_phase_a = 0;                      ///< 45 Hz, -0.1 in 16.16
    Shared<int> fixed_phase_b = 0;                      ///< 45 Hz, -1.0 in 16.16
    Shared<uint8_t> tool_tick_flag = 0;                 ///< set at 45 Hz, cleared by the tools
    Shared<int> tool_ticks = 0;                         ///< 45 Hz, zeroed by run_frame: ticks since the last frame
    Shared<int> caret_phase = 0;                        ///< 10 Hz, 0 to 6; the caret shows below 3
    std::array<Shared<uint8_t>, 100> sample_played{};   ///< 1: the sample has been played in this 1/5 s
    Shared<int> present_ready = 1000;                   ///< set by the presenter, cleared by the logic tick
};
inline Clock clock_state;

/// Units of 1/1193181 s.
constexpr int logic_period_fast = 9943;  ///< 120 Hz: the frame limiter is off
constexpr int logic_period_slow = 19886; ///< 60 Hz

/// Callbacks of this unit.
void clock_tick();
void world_tick();
void caret_tick();
void sample_tick();
/// What n of them do that nobody waited for.
void pass_clock(int n);
void pass_world(int n);
void pass_caret(int n);
void pass_samples(int n);
/// Whether somebody waits for the next one.
bool clock_waited_for();
bool world_waited_for();
inline bool counted_only() { return false; } ///< caret and samples: soon enough with the next tick of another timer

/// A wait on `wait_counter`: zeroes it, and has the clock tick until the end of the scope. Main thread.
class TickWait {
public:
    TickWait();
    ~TickWait();
    TickWait(const TickWait&) = delete;
    TickWait& operator=(const TickWait&) = delete;
};

/// Resets `wait_counter` and calls `callback` until n counts (500 a second) have passed.
void wait_ticks(int n, void (*callback)());

} // namespace kelu
