// The animation's tick: speeds, delays, both directions and both ends.
#include "runtime/animation.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

/// Ticks until the position changes.
int ticks_to_step()
{
    const int pos = animation.anim_pos;
    int ticks = 0;
    while (animation.anim_pos == pos && ticks < 20000) {
        animation_tick();
        ++ticks;
    }
    return ticks;
}

class AnimationTick : public testing::Test {
protected:
    AnimationTick()
    {
        animation = {};
        for (auto& entry : animation.anim_list)
            entry = -1;
        for (int i = 0; i < 3; ++i)
            animation.anim_list[static_cast<std::size_t>(i)] = 2 * i + 1; // frames 1, 3, 5
        animation.anim_count = 3;
        animation.anim_state = ANIM_FORWARD;
    }
    ~AnimationTick() override { animation = {}; }
};

} // namespace

TEST_F(AnimationTick, CountsByTheSpeed)
{
    struct Row {
        int speed, delay, ticks;
    };
    for (const auto& [speed, delay, ticks] : {Row{10, 0, 1},
                                              {10, 9, 1},
                                              {10, 10, 2},
                                              {5, 100, 21},
                                              {1, 0, 1},
                                              {1, 100, 101},
                                              {0, 100, 101},
                                              {-1, 4, 5},
                                              {-10, 0, 10},
                                              {-10, 100, 1010}}) {
        animation.anim_speed = speed;
        animation.anim_delay[1] = animation.anim_delay[3] = animation.anim_delay[5] = delay;
        animation.anim_timer = 0;
        animation.anim_subtick = 0;
        EXPECT_EQ(ticks_to_step(), ticks) << "speed " << speed << ", delay " << delay;
    }
}

TEST_F(AnimationTick, GoesRoundBothWaysByTheDelayBetween)
{
    animation.anim_delay[1] = 4;
    animation.anim_delay[5] = 8;
    EXPECT_EQ(ticks_to_step(), 5);
    EXPECT_EQ(ticks_to_step(), 1);
    EXPECT_EQ(ticks_to_step(), 9);
    EXPECT_EQ(animation.anim_pos, 0) << "behind the last comes the first";
    animation.anim_state = ANIM_BACKWARD;
    EXPECT_EQ(ticks_to_step(), 9) << "the delay behind the last lies between them";
    EXPECT_EQ(animation.anim_pos, 2);
    EXPECT_EQ(ticks_to_step(), 1);
    EXPECT_EQ(ticks_to_step(), 5);
    EXPECT_EQ(animation.anim_pos, 0);
    animation.anim_state = -ANIM_BACKWARD;
    for (int i = 0; i < 100; ++i)
        animation_tick();
    EXPECT_EQ(animation.anim_pos, 0) << "paused";
}

TEST_F(AnimationTick, SurvivesAListThatShrank)
{
    animation.anim_pos = 99;
    animation_tick();
    EXPECT_EQ(animation.anim_pos, 0);
    for (const int state : {ANIM_FORWARD, ANIM_BACKWARD}) {
        for (auto& entry : animation.anim_list)
            entry = -1;
        animation.anim_count = 0;
        animation.anim_state = state;
        animation.anim_pos = 7;
        animation_tick();
        EXPECT_EQ(animation.anim_pos, 0);
    }
}

} // namespace kelu
