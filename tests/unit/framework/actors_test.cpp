// SPDX-License-Identifier: MIT
// The table of actors: who may be grabbed and destroyed, and what the log says about the rest.
#include "runtime/actors.h"

#include "runtime/bubble_table.h"
#include "support/fresh_state.h"
#include "support/log_lines.h"

namespace kelu {
namespace {

using Lines = std::vector<std::string>;

class ActorsTest : public test::FreshState {
protected:
    LogLines log;
};

} // namespace

TEST_F(ActorsTest, GrabsFortyEightRowsAndNoMore)
{
    for (int who = 1; who <= 48; ++who) {
        ASSERT_EQ(FW_grab_actor(), who);
        actor_at(who).Type = ACTOR_ELEMENT;
    }
    EXPECT_EQ(count_actors(), 48);
    EXPECT_EQ(FW_spawn_blank_element(1, 2), -1);
    EXPECT_EQ(log.take(), (Lines{"[ ERROR ] : Attempted to grab object, but none available!",
                                 "ERROR: No free actors while spawning generic element! slot = -1"}));
    FW_destroy_actor(17, "test");
    EXPECT_EQ(FW_grab_actor(), 17);
}

TEST_F(ActorsTest, RefusesToTouchTheProtectedRowsAndNumbersOutside)
{
    actor_at(0).Type = ACTOR_RESERVED;
    actor_at(49).Type = ACTOR_RESERVED;
    for (const int who : {0, 49, -1, 50}) {
        FW_destroy_actor(who, "x");
        EXPECT_FALSE(check_actor(who));
    }
    EXPECT_EQ(actor_at(0).Type, ACTOR_RESERVED);
    EXPECT_EQ(actor_at(49).Type, ACTOR_RESERVED);
    EXPECT_EQ(log.take(), (Lines{"[ ERROR ] : A process tried to destroy object (0) -- this object is protected!",
                                 "[ REFER ] : x", "[ TRAP ] : A process tried to kill object (0)",
                                 "[ ERROR ] : A process tried to destroy object (MAX-1) -- this object is protected!",
                                 "[ REFER ] : x", "[ TRAP ] : A process tried to kill object (MAX-1)",
                                 "[ ERROR ] : A process tried to destroy an object less than 0!", "[ REFER ] : x",
                                 "[ TRAP ] : A process tried to kill an object < 0!",
                                 "[ ERROR ] : A process tried to destroy an object greater than maximum!",
                                 "[ REFER ] : x", "[ TRAP ] : A process tried to kill an object > MAX!"}));
    EXPECT_TRUE(check_actor(1));
    EXPECT_TRUE(check_actor(48));
    reset_actors();
    EXPECT_EQ(count_actors(), 0);
    EXPECT_EQ(log.take(), Lines{});
}

TEST_F(ActorsTest, HandsOutBehaviorSlotsAndTheFourthWhenAllAreTaken)
{
    for (int slot = 0; slot < 3; ++slot) {
        EXPECT_EQ(get_free_behavior(9), slot);
        actor_at(9).BEHAVIOR[static_cast<std::size_t>(slot)] = 25;
    }
    EXPECT_EQ(get_free_behavior(9), 3);
    actor_at(9).BEHAVIOR[3] = 30;
    EXPECT_EQ(get_free_behavior(9), 3);
    EXPECT_EQ(check_behavior(9, 25), 2);
    EXPECT_EQ(check_behavior(9, 30), 3);
    EXPECT_EQ(check_behavior(9, 31), -1);
    EXPECT_EQ(get_free_behavior(50), 0);
    EXPECT_EQ(check_behavior(-1, 25), 0);
    EXPECT_EQ(log.take(), (Lines{"[ ERROR ] : WHO parameter OOB in call to get_free_behavior()! who = 50",
                                 "[ ERROR ] : WHO parameter OOB in call to check_behavior()! who = -1"}));
}

} // namespace kelu
