// Behaviours that move, turn and resize an actor.
#include "unit/framework/behavior_fixture.h"

namespace kelu {

TEST_F(BehaviorTest, StraightMovesEndTheAnimationsThatTheyShould)
{
    start(BEHAVIOR_LINEAR_MOVE, {2, -1, 3});
    start(BEHAVIOR_ANIMATE, {}, 1);
    EXPECT_EQ(ticks_to_end(), 3);
    EXPECT_EQ(x(), 6);
    EXPECT_EQ(y(), -3);
    EXPECT_TRUE(runs(1));
    actor.anim_kill = 1;
    start(BEHAVIOR_LINEAR_MOVE, {0, 0, 1});
    tick();
    EXPECT_FALSE(runs(1));
    actor.anim_kill = 0;
    start(BEHAVIOR_ANIMATE, {}, 2);
    start(BEHAVIOR_LINEAR_MOVE_KILL_ANIM, {5, 5, 1});
    tick();
    EXPECT_FALSE(runs(2));
    EXPECT_EQ(x(), 11);
}

TEST_F(BehaviorTest, FixedStepsTruncateAndSubtractTheHeight)
{
    actor.actor_velocity[0] = 4000;
    actor.actor_velocity[1] = -4000;
    actor.actor_velocity[2] = 10000;
    start(BEHAVIOR_PROJECTILE, {10, 0, 1});
    tick(2);
    EXPECT_EQ(x(), 0);
    EXPECT_EQ(y(), 0);
    EXPECT_EQ(z(), -2) << "the pull is felt from the second step on: -1, then -1.01";
    EXPECT_EQ(actor.actor_velocity[2], 10200);
    EXPECT_EQ(actor.behavior_params[0][1], 2) << "the frame turns while more than eight runs are left";
    EXPECT_EQ(ticks_to_end(), 8);
    EXPECT_EQ(x(), 4);
    EXPECT_EQ(y(), -4);
}

TEST_F(BehaviorTest, AcceleratedMovesWaitForTheirDelayAndStopAtZero)
{
    actor.actor_velocity[0] = 10000;
    actor.actor_velocity[1] = 10000;
    // 20 runs of 2 steps; braked on x from the fifth step on, gravity off.
    start(BEHAVIOR_VECTOR_MOVEMENT, {20, -2500, 0, 0, 1, 4, 0, 2});
    tick(2);
    EXPECT_EQ(x(), 4);
    tick(2);
    EXPECT_EQ(actor.actor_velocity[0], 0);
    EXPECT_EQ(actor.behavior_params[0][1], 0) << "the braking is over";
    EXPECT_EQ(x(), 6) << "4 + 1 + 0.75 + 0.5 + 0.25";
    EXPECT_EQ(ticks_to_end(), 16);
    EXPECT_EQ(x(), 6);
    EXPECT_EQ(y(), 40);
}

TEST_F(BehaviorTest, MovesToATargetSlowDownAndStandOnIt)
{
    actor.actor_velocity[0] = 20000;
    actor.actor_velocity[1] = -10000;
    start(BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD, {0, 0, 0, 40, -40, 0, 50, 1});
    tick(9);
    EXPECT_EQ(x(), 18);
    EXPECT_EQ(actor.actor_velocity[0], 20000);
    tick();
    EXPECT_EQ(actor.actor_velocity[0], 15000) << "at half the way a quarter is lost";
    EXPECT_EQ(actor.behavior_params[0][6], 75);
    ticks_to_end();
    EXPECT_FALSE(runs());
    EXPECT_EQ(x(), 40);
    EXPECT_EQ(y(), -40);
    EXPECT_EQ(actor.actor_velocity[0], 0);
}

TEST_F(BehaviorTest, SlidesGoOutAndComeBack)
{
    start(BEHAVIOR_SLIDE_UNIT, {1, 0, 0, 2, 5});
    tick(1 + 2 + 3 + 4);
    EXPECT_EQ(x(), 4);
    tick(3 + 4 + 3 + 2 + 1);
    EXPECT_EQ(x(), 0);
    EXPECT_EQ(ticks_to_end(), 5 + 23 + 5);
    EXPECT_EQ(x(), 0);
    EXPECT_EQ(y(), 0);
}

TEST_F(BehaviorTest, FloatsRiseJitterAndExpand)
{
    start(BEHAVIOR_FLOAT, {100, 0, 10, 64});
    tick();
    EXPECT_EQ(z(), 100);
    tick();
    EXPECT_EQ(z(), 110);
    tick(2);
    EXPECT_EQ(z(), 90);
    EXPECT_EQ(actor.behavior_params[0][1], 0) << "the angle has gone once round";

    BE_clear_behavior(1, 0);
    start(BEHAVIOR_JITTER, {50, 60, 0, 30});
    for (int i = 0; i < 30; ++i) {
        tick();
        EXPECT_LE(std::abs(x() - 50), 1);
        EXPECT_LE(std::abs(y() - 60), 1);
        EXPECT_FALSE(x() == 50 && y() == 60);
    }
    EXPECT_FALSE(runs());

    start(BEHAVIOR_EXPANDER, {0, 3, 4});
    ticks_to_end();
    EXPECT_EQ(actor.Diameter, 12);
    start(BEHAVIOR_EXPANDER, {1, 2, 4});
    ticks_to_end();
    EXPECT_EQ(actor.Diameter, 4);
    start(BEHAVIOR_POLY_DIAMETER_PULSE, {3, 0, 0});
    tick(3);
    EXPECT_EQ(actor.Diameter, 7);
    tick(3);
    EXPECT_EQ(actor.Diameter, 4);
}

TEST_F(BehaviorTest, TurnsWrapAndStopNearTheirTarget)
{
    actor.actor_angle = 250;
    start(BEHAVIOR_ROTATE, {4, 0, 20});
    tick(2);
    EXPECT_EQ(actor.actor_angle, 2);
    EXPECT_EQ(ticks_to_end(), 4);
    EXPECT_EQ(actor.actor_angle, 18);
    start(BEHAVIOR_ROTATE, {-1, 1, 0});
    tick();
    EXPECT_EQ(actor.actor_angle2, 255);
    EXPECT_EQ(actor.actor_angle, 18);
    BE_clear_behavior(1, 0);
    actor.actor_angle = 4;
    start(BEHAVIOR_SLIDE_ROTATE, {2});
    tick();
    EXPECT_EQ(y(), -2);
    EXPECT_EQ(z(), -2);
    tick(64);
    EXPECT_EQ(actor.actor_angle, 134);
    EXPECT_EQ(y(), 0);
}

} // namespace kelu
