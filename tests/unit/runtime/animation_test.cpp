// SPDX-License-Identifier: MIT
// The animation's tick: speeds, delays, both directions and both ends.
#include "runtime/animation.h"
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

} // namespace

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

} // namespace kelu
