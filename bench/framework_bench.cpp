// SPDX-License-Identifier: MIT
// What the idle actor layer costs: its passes run 140 and 100 times a second while the editor works.
#include "base/run_state.h"
#include "framework/actor_shadow.h"
#include "framework/behaviors.h"
#include "framework/bubbles.h"
#include "framework/script.h"
#include "framework/tint.h"
#include <benchmark/benchmark.h>

namespace kelu {
namespace {

void pass(benchmark::State& state, void (*tick)())
{
    run_state.timers_locked = 0;
    for (auto _ : state)
        tick();
}

void behavior_tick_idle(benchmark::State& state) { pass(state, behavior_tick); }
void bubble_tick_idle(benchmark::State& state) { pass(state, bubble_tick); }
void script_tick_idle(benchmark::State& state) { pass(state, script_tick); }

void behavior_tick_with_tint(benchmark::State& state)
{
    reset_actors();
    FW_tint_screen(0, 0, 0, 0, 0, 0); // a step of 0 holds for good
    pass(state, behavior_tick);
    reset_actors();
}

void shadow_copy(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(update_actor_shadow());
}

BENCHMARK(behavior_tick_idle);
BENCHMARK(behavior_tick_with_tint);
BENCHMARK(bubble_tick_idle);
BENCHMARK(script_tick_idle);
BENCHMARK(shadow_copy);

} // namespace
} // namespace kelu
