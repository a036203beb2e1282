// SPDX-License-Identifier: MIT
// The fade from black at the start, and what else the screen tint can do.
#include "framework/tint.h"

#include "framework/actor_shadow.h"
#include "framework/behaviors.h"
#include "support/fresh_state.h"

namespace kelu {
namespace {

class TintTest : public test::FreshState {
protected:
    static void tick(int n)
    {
        for (int i = 0; i < n; ++i)
            behavior_tick();
    }
};

} // namespace

TEST_F(TintTest, RunsAreAnIntervalApartAndHeldBackWhileTimersAreLocked)
{
    tint.tint_opacity = 0;
    FW_tint_screen(10, 20, 30, 5, 5, 1);
    tick(5);
    EXPECT_EQ(tint.tint_red, -1);
    tick(1);
    EXPECT_EQ(tint.tint_blue, 30);
    EXPECT_EQ(tint.tint_opacity, 1);
    tick(6);
    EXPECT_EQ(tint.tint_opacity, 2);
    run_state.timers_locked = 1;
    tick(60);
    EXPECT_EQ(tint.tint_opacity, 2);
}

TEST_F(TintTest, IsSentElsewhereWithoutASecondActorAndHeldByAStepOfZero)
{
    FW_tint_screen(0, 0, 0, 100, 0, 100);
    tick(1);
    FW_tint_screen(255, 0, 0, 20, 0, 0);
    EXPECT_EQ(count_actors(), 1);
    tick(500);
    EXPECT_EQ(tint.tint_red, 255);
    EXPECT_EQ(tint.tint_opacity, 100);
    EXPECT_EQ(count_actors(), 1);
    // A last move that reaches the target leaves the end to the next run.
    FW_tint_screen(255, 0, 0, 98, 0, 2);
    tick(1);
    EXPECT_EQ(tint.tint_opacity, 98);
    EXPECT_EQ(count_actors(), 1);
    tick(1);
    EXPECT_EQ(count_actors(), 0);
}

TEST_F(TintTest, IsLaidOverTheWholePicture)
{
    Bitmap picture(3, 2, 0xffffff);
    draw_screen_tint(picture);
    tint.tint_red = tint.tint_green = 0;
    tint.tint_opacity = 254;
    draw_screen_tint(picture);
    EXPECT_EQ(row(picture, 1)[2], 0xffffff) << "a channel of -1 is no tint";
    tint.tint_blue = 255;
    draw_screen_tint(picture);
    EXPECT_EQ(row(picture, 0)[0] >> 8, 0);
    EXPECT_EQ(row(picture, 1)[2], row(picture, 0)[0]);
}

} // namespace kelu
