// SPDX-License-Identifier: MIT
// The pass over the slots: intervals, lives, puppets, pauses, autokill and the guards.
#include "unit/framework/behavior_fixture.h"

namespace kelu {

using Lines = std::vector<std::string>;

TEST_F(BehaviorTest, IntervalFiveRunsEverySixthTick)
{
    start(BEHAVIOR_RISER, {100, 1});
    actor.behavior_interval[0] = 5;
    tick(5);
    EXPECT_EQ(z(), 0);
    tick(1);
    EXPECT_EQ(z(), 1);
    tick(6);
    EXPECT_EQ(z(), 2);
}

TEST_F(BehaviorTest, AutokillDestroysTheActorInTheRunThatEndsTheBehaviour)
{
    start(BEHAVIOR_RISER, {2, 1});
    start(BEHAVIOR_RISER, {100, 1}, 2);
    actor.behavior_autokill[0] = 1;
    tick(2);
    EXPECT_EQ(actor.Type, ACTOR_FREE);
    EXPECT_EQ(z(), 0) << "the later slots died with it";
    // A protected row refuses, but its slot is free.
    actor_at(0).BEHAVIOR[0] = BEHAVIOR_RISER;
    actor_at(0).behavior_params[0][0] = 1;
    actor_at(0).behavior_autokill[0] = 1;
    tick();
    EXPECT_EQ(actor_at(0).BEHAVIOR[0], 0);
    EXPECT_EQ(log.take(), (Lines{"[ ERROR ] : A process tried to destroy object (0) -- this object is protected!",
                                 "[ REFER ] : BE_clear_behavior"}));
}

TEST_F(BehaviorTest, ForcedPauseHoldsTheLaterSlotsOnly)
{
    start(BEHAVIOR_LINEAR_MOVE, {1, 0, 100}, 0);
    start(BEHAVIOR_FORCE_PAUSE, {10}, 1);
    start(BEHAVIOR_LINEAR_MOVE, {0, 1, 100}, 2);
    start(BEHAVIOR_RISER, {100, 1}, 3);
    tick(10);
    EXPECT_EQ(x(), 10);
    EXPECT_EQ(y(), 0);
    EXPECT_EQ(z(), 0);
    tick(5);
    EXPECT_EQ(y(), 5);
    EXPECT_EQ(z(), 5);
}

TEST_F(BehaviorTest, GuardsNameTheBehaviourAndChangeNothing)
{
    start(BEHAVIOR_RISER, {5, 1});
    for (const int who : {50, -1})
        run_behavior(BEHAVIOR_FADE, who, 0);
    run_behavior(BEHAVIOR_RISER, 1, 4);
    BE_clear_behavior(1, -1);
    EXPECT_EQ(FW_check_behaviors(77, 0), 0);
    run_behavior(1000, 1, 0); // no such behaviour: no line either
    run_behavior(3, 1, 0);
    EXPECT_EQ(z(), 0);
    EXPECT_TRUE(runs());
    EXPECT_EQ(log.take(),
              (Lines{"[ ERROR ] : WHO parameter OOB in call to BE_fade()!", "[ STATS ] : who = 50",
                     "[ ERROR ] : WHO parameter OOB in call to BE_fade()!", "[ STATS ] : who = -1",
                     "[ ERROR ] : SLOT parameter OOB in call to BE_riser()!", "[ STATS ] : slot = 4",
                     "[ ERROR ] : SLOT parameter OOB in call to BE_clear_behavior()!", "[ STATS ] : slot = -1",
                     "[ ERROR ] : WHO parameter OOB in call to FW_check_behaviors()!", "[ STATS ] : who = 77"}));
}

// Whatever stands in the parameters of any behaviour, the pass neither leaves its tables nor hangs.
TEST_F(BehaviorTest, AnyParametersAreHarmless)
{
    for (int round = 0; round < 40; ++round) {
        reset_actors();
        for (int who = 1; who < 49; ++who) {
            Actor& any = actor_at(who);
            any.Type = ACTOR_ELEMENT;
            any.actor_velocity[0] = any.actor_velocity[2] = round % 2 == 0 ? INT32_MIN : INT32_MAX;
            any.particles.total = rnd(140);
            any.anim_table[0].duration = rnd(3);
            for (auto& params : any.behavior_params) {
                for (Shared16& value : params)
                    value = round % 4 == 0 ? rnd(5) - 2 : rnd(65536);
            }
            for (std::size_t slot = 0; slot < max_behaviors; ++slot) {
                any.BEHAVIOR[slot] = rnd(101);
                if (any.BEHAVIOR[slot] == BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD) any.behavior_params[slot][7] = rnd(9);
                if (any.BEHAVIOR[slot] == BEHAVIOR_VECTOR_MOVEMENT) any.behavior_params[slot][7] = rnd(9);
            }
        }
        tick(20);
        EXPECT_EQ(actor_at(0).Type, ACTOR_FREE);
        EXPECT_EQ(actor_at(49).Type, ACTOR_FREE);
        EXPECT_LE(count_actors(), 48);
    }
}

} // namespace kelu
