// SPDX-License-Identifier: MIT
// Animation tables: writing, playing, looping, ending.
#include "framework/animation.h"

#include "unit/framework/behavior_fixture.h"

namespace kelu {

using Lines = std::vector<std::string>;

TEST_F(BehaviorTest, AnimationsPlayTheirDurationsLoopAndEnd)
{
    FW_store_anim(1, ANIM_MOVING, 1, {{7, 1, 2}, {8, 0, 1}});
    start(BEHAVIOR_ANIMATE, {});
    std::string shown;
    for (int i = 0; i < 6; ++i) {
        tick();
        shown += std::to_string(int(actor.actor_cel));
    }
    EXPECT_EQ(shown, "787787");
    FW_store_anim(1, ANIM_MOVING, 0, {{7, 1, 2}, {8, 0, 1}});
    tick(10);
    EXPECT_EQ(actor.anim_table[1].cel, 0) << "the end clears the table";
    EXPECT_TRUE(runs()) << "and leaves the behaviour idle";
    FW_store_anim(1, ANIM_MOVING, 0, {{5, 0, 1}});
    actor.behavior_autokill[0] = 1;
    tick();
    EXPECT_EQ(actor.Type, ACTOR_FREE);
}

TEST_F(BehaviorTest, TablesTakeWhatFitsAndKeepSkippedEntries)
{
    FW_store_anim(1, ANIM_STANDING, 1, {{1, 1, 1}, {2, 2, 2}, {3, 3, 3}});
    FW_store_anim(1, ANIM_STANDING, 0, {{4, 4, 4}, {-1, 9, 9}, {5, 5, 5}});
    EXPECT_EQ(actor.stand_table[1].cel, 2);
    EXPECT_EQ(actor.stand_table[1].duration, 2);
    EXPECT_EQ(actor.stand_table[2].option, 5);
    EXPECT_EQ(actor.stand_table[3].cel, anim_end);
    const AnimCel c{6, 0, 1};
    FW_store_anim(1, ANIM_STANDING, 0, {c, c, c, c, c, c, c, c, c, c, c, c, c, c, c, c, c});
    EXPECT_EQ(actor.stand_table[0].cel, 4);
    // A full table has no mark; playing past its last entry ends it.
    FW_store_anim(1, ANIM_STANDING, 1, {c, c, c, c, c, c, c, c, c, c, c, c, c, c, c, c});
    start(BEHAVIOR_STANDING_ANIMATION, {});
    tick(16);
    EXPECT_EQ(actor.stand_table[15].cel, 0);
    FW_store_anim(50, ANIM_MOVING, 0, {c});
    FW_randomize_anim(-1, ANIM_MOVING);
    EXPECT_EQ(log.take(), (Lines{"[ WARNING] : Too many animation cels passed to store_anim!",
                                 "[ ERROR ] : Invalid actor # passed to FW_store_anim()",
                                 "[ ERROR ] : Invalid actor # passed to FW_randomize_anim()"}));
}

} // namespace kelu
