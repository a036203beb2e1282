// SPDX-License-Identifier: MIT
// The counters of the timers.
#include "runtime/clock.h"

#include "base/run_state.h"
#include "platform/host.h"
#include "runtime/jobs.h"
#include "runtime/shows.h"
#include <algorithm>

namespace kelu {
namespace {

template <class T>
void advance(Shared<T>& word, int step)
{
    word = static_cast<T>(T(word) + step);
}

/// The fixed-point phases run down for ever and wrap, as unsigned words do.
void run_down(Shared<int>& word, unsigned step, int times)
{
    word = static_cast<int>(static_cast<unsigned>(int(word)) - step * static_cast<unsigned>(times));
}

constexpr int phase_turn = 500; ///< values of `phase_counter`

/// How many of 1 to n are multiples of k.
constexpr int multiples(int n, int k) { return n / k; }

} // namespace

void clock_tick()
{
    advance(clock_state.wait_counter, 1);
    advance(clock_state.hold_counter, 1);
    if (clock_state.idle_counter < 1000) advance(clock_state.idle_counter, 1);
    const int phase = (clock_state.phase_counter + 1) % phase_turn;
    clock_state.phase_counter = phase;
    for (int k = 1; k <= 8; ++k) {
        if (phase % k == 0) advance(clock_state.phase[k], 1);
    }
}

void world_tick()
{
    if (run_state.timers_locked != 0) return;
    advance(clock_state.world_phase_a, 1);
    clock_state.world_phase_b = (clock_state.world_phase_b + 127) % 128;
    if (run_state.gui_active == 0) return;
    clock_state.marching_ants_phase = (clock_state.marching_ants_phase + 1) % 32;
    advance(clock_state.slow_phase_a, 1);
    advance(clock_state.slow_phase_b, 1);
    advance(clock_state.fast_phase_a, 2);
    advance(clock_state.fast_phase_b, 2);
    run_down(clock_state.fixed_phase_a, 6554, 1);
    run_down(clock_state.fixed_phase_b, 65536, 1);
    clock_state.tool_tick_flag = 1;
    advance(clock_state.tool_ticks, 1);
    count_job_delays();
}

void caret_tick() { clock_state.caret_phase = (clock_state.caret_phase + 1) % 7; }

void sample_tick()
{
    for (Shared<uint8_t>& flag : clock_state.sample_played)
        flag = 0;
}

void pass_clock(int n)
{
    advance(clock_state.wait_counter, n);
    advance(clock_state.hold_counter, n);
    clock_state.idle_counter = int(std::min(1000L, int(clock_state.idle_counter) + long{n}));
    const int begin = clock_state.phase_counter;
    const int turns = n / phase_turn;
    const int end = begin + n % phase_turn;
    clock_state.phase_counter = end % phase_turn;
    for (int k = 1; k <= 8; ++k) {
        int steps =
            turns * multiples(phase_turn - 1, k) + multiples(std::min(end, phase_turn - 1), k) - multiples(begin, k);
        if (end >= phase_turn) steps += multiples(end - phase_turn, k) + 1;
        // 0 is a multiple of all, and is met once a turn.
        advance(clock_state.phase[k], steps + turns);
    }
}

bool clock_waited_for() { return clock_state.waited_on != 0; }

void pass_world(int n)
{
    if (run_state.timers_locked != 0) return;
    advance(clock_state.world_phase_a, n);
    clock_state.world_phase_b = (clock_state.world_phase_b + 127 * (n % 128)) % 128;
    if (run_state.gui_active == 0) return;
    clock_state.marching_ants_phase = (clock_state.marching_ants_phase + n % 32) % 32;
    advance(clock_state.slow_phase_a, n);
    advance(clock_state.slow_phase_b, n);
    advance(clock_state.fast_phase_a, 2 * (n % 128));
    advance(clock_state.fast_phase_b, 2 * (n % 128));
    run_down(clock_state.fixed_phase_a, 6554, n);
    run_down(clock_state.fixed_phase_b, 65536, n);
    clock_state.tool_tick_flag = 1;
    advance(clock_state.tool_ticks, n);
}

/// The tools count these ticks, dashes march by them, and jobs wait for them.
bool world_waited_for() { return shows.lively > 0 || shows.dashes != 0 || job_find(JOB_ANY) >= 0; }

void pass_caret(int n) { clock_state.caret_phase = (clock_state.caret_phase + n % 7) % 7; }

void pass_samples(int) { sample_tick(); }

TickWait::TickWait()
{
    clock_state.waited_on = 1;
    platform::host->wake_timers();
    clock_state.wait_counter = 0;
}

TickWait::~TickWait() { clock_state.waited_on = 0; }

void wait_ticks(int n, void (*callback)())
{
    const TickWait wait;
    while (clock_state.wait_counter < n)
        callback();
}

} // namespace kelu
