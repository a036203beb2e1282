// SPDX-License-Identifier: MIT
// The animation's tick: speeds, delays, both directions and both ends. Ticks that nobody waited for leave the same as
// ticks one by one.
#include "base/run_state.h"
#include "gui/logic.h"
#include "gui/slots.h"
#include "runtime/animation.h"
#include "runtime/clock.h"
#include <gtest/gtest.h>
#include <vector>

namespace kelu {
namespace {

/// The list of three frames, 1, 3 and 5, forward.
void begin(int speed, int delay_1, int delay_3, int delay_5)
{
    animation = {};
    for (std::size_t i = 0; i < animation.anim_list.size(); ++i)
        animation.anim_list[i] = i < 3 ? static_cast<int>(2 * i + 1) : -1;
    animation.anim_count = 3;
    animation.anim_speed = speed;
    animation.anim_delay[1] = delay_1;
    animation.anim_delay[3] = delay_3;
    animation.anim_delay[5] = delay_5;
    animation.anim_state = ANIM_FORWARD;
}

/// Ticks until the position changes.
int ticks_to_step()
{
    const int pos = animation.anim_pos;
    int ticks = 0;
    for (; animation.anim_pos == pos && ticks < 2000; ++ticks)
        animation_tick();
    return ticks;
}

TEST(AnimationTick, CountsByTheSpeed)
{
    struct Row {
        int speed, delay, ticks;
    };
    for (const auto& [speed, delay, ticks] : {Row{10, 0, 1},
                                              {10, 9, 1},
                                              {10, 10, 2},
                                              {5, 100, 21},
                                              {1, 100, 101},
                                              {0, 100, 101},
                                              {-1, 4, 5},
                                              {-10, 0, 10},
                                              {-10, 100, 1010}}) {
        begin(speed, delay, delay, delay);
        EXPECT_EQ(ticks_to_step(), ticks) << "speed " << speed << ", delay " << delay;
    }
}

TEST(AnimationTick, GoesRoundBothWaysByTheDelayBetween)
{
    begin(1, 4, 0, 8);
    const auto three_steps = [] { return std::vector{ticks_to_step(), ticks_to_step(), ticks_to_step()}; };
    EXPECT_EQ(three_steps(), (std::vector{5, 1, 9}));
    EXPECT_EQ(animation.anim_pos, 0) << "behind the last comes the first";
    animation.anim_state = ANIM_BACKWARD;
    EXPECT_EQ(three_steps(), (std::vector{9, 1, 5})) << "the delay behind the last lies between it and the first";
    animation.anim_state = -ANIM_BACKWARD;
    EXPECT_EQ(ticks_to_step(), 2000) << "paused";
}

TEST(AnimationTick, SurvivesAListThatShrank)
{
    for (const int state : {ANIM_FORWARD, ANIM_BACKWARD}) {
        begin(1, 0, 0, 0);
        for (auto& entry : animation.anim_list)
            entry = -1;
        animation.anim_count = 0;
        animation.anim_state = state;
        animation.anim_pos = 99;
        animation_tick();
        EXPECT_EQ(animation.anim_pos, 0);
    }
    animation = {};
}

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
