// The counters of the timers.
#include "runtime/clock.h"

#include "base/run_state.h"
#include "runtime/jobs.h"

namespace kelu {
namespace {

template <class T>
void advance(Shared<T>& word, int step)
{
    word = static_cast<T>(T(word) + step);
}

} // namespace

void clock_tick()
{
    advance(clock_state.wait_counter, 1);
    advance(clock_state.hold_counter, 1);
    if (clock_state.idle_counter < 1000) advance(clock_state.idle_counter, 1);
    const int phase = (clock_state.phase_counter + 1) % 500;
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
    // The two fixed-point phases run down for ever and wrap, as unsigned words do.
    const auto run_down = [](Shared<int>& word, unsigned step) {
        word = static_cast<int>(static_cast<unsigned>(int(word)) - step);
    };
    run_down(clock_state.fixed_phase_a, 6554);
    run_down(clock_state.fixed_phase_b, 65536);
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

void wait_ticks(int n, void (*callback)())
{
    clock_state.wait_counter = 0;
    while (clock_state.wait_counter < n)
        callback();
}

} // namespace kelu
