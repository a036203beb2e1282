// SPDX-License-Identifier: MIT
// Ticks that nobody waited for leave the same as ticks one by one.
#include "base/run_state.h"
#include "gui/logic.h"
#include "gui/slots.h"
#include "runtime/clock.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

/// All that the counters hold, in one list.
std::vector<int> counters()
{
    const Clock& clock = clock_state;
    std::vector<int> all{clock.wait_counter, clock.hold_counter, clock.idle_counter, clock.phase_counter};
    for (const auto& phase : clock.phase)
        all.push_back(phase);
    for (const int word :
         {int(clock.world_phase_a), int(clock.world_phase_b), int(clock.marching_ants_phase), int(clock.slow_phase_a),
          int(clock.slow_phase_b), int(clock.fast_phase_a), int(clock.fast_phase_b), int(clock.fixed_phase_a),
          int(clock.fixed_phase_b), int(clock.tool_tick_flag), int(clock.tool_ticks), int(clock.caret_phase),
          int(gui_logic.pulse_value), int(gui_logic.pulse_step), int(gui_logic.pulse_wait)})
        all.push_back(word);
    return all;
}

/// The logic tick as far as nobody waits for it: the pulse, on an empty table.
void empty_logic_tick() { gui_logic_tick(); }

TEST(Clock, PassesAsItTicks)
{
    struct Row {
        void (*tick)();
        void (*pass)(int n);
    };
    const RunState before = run_state;
    run_state.timers_locked = 0;
    run_state.gui_active = 1;
    for (const Row& row : {Row{clock_tick, pass_clock}, Row{world_tick, pass_world}, Row{caret_tick, pass_caret},
                           Row{empty_logic_tick, pass_logic}}) {
        for (const int warm_up : {0, 3, 499, 777}) {
            for (const int n : {1, 2, 7, 97, 98, 99, 499, 500, 501, 12345}) {
                clock_state = {};
                gui_logic = {};
                for (int i = 0; i < warm_up; ++i)
                    row.tick();
                const Clock clock_then = clock_state;
                const GuiLogic logic_then = gui_logic;
                for (int i = 0; i < n; ++i)
                    row.tick();
                const std::vector<int> ticked = counters();
                clock_state = clock_then;
                gui_logic = logic_then;
                row.pass(n);
                EXPECT_EQ(counters(), ticked) << warm_up << " and " << n;
            }
        }
    }
    clock_state = {};
    gui_logic = {};
    run_state = before;
}

} // namespace
} // namespace kelu
