// SPDX-License-Identifier: MIT
// What each behaviour makes of an actor, run by run; and those that act beyond it.
#include "framework/fades.h"
#include "framework/variables.h"
#include "runtime/jobs.h"
#include "unit/framework/behavior_fixture.h"

namespace kelu {
namespace {

using Lines = std::vector<std::string>;

/// What differs from a free row, in short.
std::string look_of(const Actor& actor)
{
    const Actor blank;
    std::string look;
    const auto add = [&look](const char* name, int value, int start) {
        if (value != start) look += name + std::to_string(value) + ' ';
    };
    for (std::size_t axis = 0; axis < 3; ++axis)
        add(std::array{"x", "y", "z"}[axis], actor.actor_pos[axis], 0);
    add("turn ", actor.actor_angle, blank.actor_angle);
    add("second turn ", actor.actor_angle2, blank.actor_angle2);
    add("wide ", actor.Diameter, blank.Diameter);
    add("mode ", actor.Mode, blank.Mode);
    add("opacity ", actor.actor_opacity, blank.actor_opacity);
    if (!look.empty()) look.pop_back();
    return look;
}

constexpr int to_the_end = 0;

struct Case {
    const char* name;
    int id;
    std::vector<int> params;
    int ticks; ///< of the test, or to_the_end
    std::string look;
    int ends_after = 0; ///< ticks that the behaviour lives, 0 when the test is not to its end
    void (*prepare)(Actor& actor) = [](Actor&) {}; ///< before the start
};

void shown(Actor& actor) { actor.Mode = MODE_SHOWN; }
void white(Actor& actor) { actor.Mode = MODE_WHITE; }
void turned(Actor& actor) { actor.actor_angle = 250; }
void moving(Actor& actor) { actor.actor_velocity[0] = actor.actor_velocity[1] = 10000; }
void approaching(Actor& actor)
{
    actor.actor_velocity[0] = 20000;
    actor.actor_velocity[1] = -10000;
}
void thrown(Actor& actor)
{
    actor.actor_velocity[0] = 4000;
    actor.actor_velocity[1] = -4000;
    actor.actor_velocity[2] = 10000;
}

const Case cases[] = {
    {"straight", BEHAVIOR_LINEAR_MOVE, {2, -1, 3}, to_the_end, "x6 y-3", 3},
    {"thrown, a pull from the second step on", BEHAVIOR_PROJECTILE, {10, 0, 1}, 2, "z-2", 0, thrown},
    {"thrown, truncated", BEHAVIOR_PROJECTILE, {10, 0, 1}, to_the_end, "x4 y-4 z-10", 10, thrown},
    // 20 runs of 2 steps; braked on x from the fifth step on, gravity off: 4 + 1 + 0.75 + 0.5 + 0.25.
    {"braked", BEHAVIOR_VECTOR_MOVEMENT, {20, -2500, 0, 0, 1, 4, 0, 2}, 2, "x4 y4", 0, moving},
    {"braked to a stop", BEHAVIOR_VECTOR_MOVEMENT, {20, -2500, 0, 0, 1, 4, 0, 2}, to_the_end, "x6 y40", 20, moving},
    {"to a target", BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD, {0, 0, 0, 40, -40, 0, 50, 1}, 9, "x18 y-9", 0, approaching},
    {"slower from half the way on",
     BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD,
     {0, 0, 0, 40, -40, 0, 50, 1},
     12,
     "x23 y-12",
     0,
     approaching},
    {"out", BEHAVIOR_SLIDE_UNIT, {1, 0, 0, 2, 5}, 10, "x4"},
    {"and back", BEHAVIOR_SLIDE_UNIT, {1, 0, 0, 2, 5}, to_the_end, "", 56},
    {"up", BEHAVIOR_RISER, {2, 1}, to_the_end, "z2", 2},
    {"on a wave", BEHAVIOR_FLOAT, {100, 0, 10, 64}, 2, "z110"},
    {"on a wave, once round", BEHAVIOR_FLOAT, {100, 0, 10, 64}, 4, "z90"},
    {"larger", BEHAVIOR_EXPANDER, {0, 3, 4}, to_the_end, "wide 12", 4},
    {"smaller", BEHAVIOR_EXPANDER, {1, 2, 4}, to_the_end, "wide 4", 4, [](Actor& a) { a.Diameter = 12; }},
    {"pulse", BEHAVIOR_POLY_DIAMETER_PULSE, {3, 0, 0}, 3, "wide 7", 0, [](Actor& a) { a.Diameter = 4; }},
    {"pulse and back", BEHAVIOR_POLY_DIAMETER_PULSE, {3, 0, 0}, 6, "wide 4", 0, [](Actor& a) { a.Diameter = 4; }},
    {"turn over the wrap", BEHAVIOR_ROTATE, {4, 0, 20}, 2, "turn 2", 0, turned},
    {"turn to its target", BEHAVIOR_ROTATE, {4, 0, 20}, to_the_end, "turn 18", 6, turned},
    {"second turn", BEHAVIOR_ROTATE, {-1, 1, 0}, 1, "second turn 255"},
    {"slide by a turn", BEHAVIOR_SLIDE_ROTATE, {2}, 1, "y-2 z-2 turn 6", 0, [](Actor& a) { a.actor_angle = 4; }},
    {"fade in", BEHAVIOR_FADE, {0, 0}, to_the_end, "mode 4 opacity 13", 14, shown},
    {"fade out", BEHAVIOR_FADE, {13, 1}, to_the_end, "mode 4", 14, shown},
    {"white", BEHAVIOR_WHITE_FADE, {0, 0, 100}, to_the_end, "mode 6 opacity 200", 3, shown},
    {"flash at its peak", BEHAVIOR_FLASH_FADE_IN_OUT, {0, 0, 0, 10}, 255, "mode 6 opacity 255"},
    {"flash", BEHAVIOR_FLASH_FADE_IN_OUT, {0, 0, 0, 10}, to_the_end, "mode 4 opacity 13", 255 + 10 + 14 * 3},
    {"blink off", BEHAVIOR_BLINK, {}, 1, "", 0, shown},
    {"blink on", BEHAVIOR_BLINK, {}, 2, "mode 1", 0, shown},
    {"hide", BEHAVIOR_TOGGLE_MODE, {0}, to_the_end, "", 1, shown},
    {"only the plain styles flip", BEHAVIOR_TOGGLE_MODE, {1}, 3, "mode 6", 0, white},
    {"capped", BEHAVIOR_MODIFY_VARIABLE, {VARIABLE_OPACITY, 300, 1}, to_the_end, "opacity 254", 1},
    {"set, not added to", BEHAVIOR_MODIFY_VARIABLE, {VARIABLE_MODE, 6, 3}, to_the_end, "mode 6", 3},
    {"by axis", BEHAVIOR_MODIFY_VARIABLE, {VARIABLE_POSITION, -4, 2, 2}, to_the_end, "z-8", 2},
    {"there is no fourth axis", BEHAVIOR_MODIFY_VARIABLE, {VARIABLE_POSITION, -4, 2, 3}, to_the_end, "", 2},
};

} // namespace

TEST_F(BehaviorTest, EachBehaviourByItsRuns)
{
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        reset_actors();
        test.prepare(actor);
        start(test.id, test.params);
        if (test.ticks == to_the_end) {
            EXPECT_EQ(ticks_to_end(), test.ends_after);
        } else {
            tick(test.ticks);
        }
        EXPECT_EQ(look_of(actor), test.look);
        EXPECT_EQ(runs(), test.ends_after == 0);
    }
}

TEST_F(BehaviorTest, MovesEndTheAnimationsThatTheyShould)
{
    for (const auto& [move, anim_kill, plays_on] : {std::tuple{BEHAVIOR_LINEAR_MOVE, 0, true},
                                                    {BEHAVIOR_LINEAR_MOVE, 1, false},
                                                    {BEHAVIOR_LINEAR_MOVE_KILL_ANIM, 0, false}}) {
        reset_actors();
        actor.anim_kill = anim_kill;
        start(move, {5, 5, 1});
        start(BEHAVIOR_ANIMATE, {}, 1);
        tick();
        EXPECT_EQ(runs(1), plays_on) << move << ' ' << anim_kill;
    }
}

TEST_F(BehaviorTest, FadeActorFadesOutAndIn)
{
    actor.Type = ACTOR_ELEMENT;
    EXPECT_EQ(fade_actor(1, 0, 100, 0), 0);
    EXPECT_EQ(look_of(actor), "mode 4 opacity 254");
    EXPECT_EQ(ticks_to_end(), 3);
    EXPECT_EQ(actor.actor_opacity, 0);
    EXPECT_EQ(fade_actor(1, 1, 127, 3), 0);
    EXPECT_EQ(actor.actor_opacity, 1);
    EXPECT_EQ(ticks_to_end(), 8);
    EXPECT_EQ(actor.actor_opacity, 254);
    EXPECT_EQ(fade_actor(-3, 1, 1, 1), 0);
    EXPECT_EQ(log.take(), Lines{"[ ERROR ] : WHO parameter OOB in call to get_free_behavior()! who = -3"});
}

TEST_F(BehaviorTest, TrailsLeaveFadingCopies)
{
    actor.Health = 42;
    actor.actor_velocity[0] = 500;
    actor.actor_pos[0] = 9;
    start(BEHAVIOR_SPAWN_TRAIL, {0, 5, 1, 0, 12}, 3);
    tick(12);
    EXPECT_FALSE(runs(3));
    EXPECT_EQ(count_actors(), 3) << "two copies in twelve runs";
    const Actor& copy = actor_at(2);
    EXPECT_EQ(copy.Health, 42);
    EXPECT_EQ(copy.actor_pos[0], 9);
    EXPECT_EQ(copy.actor_velocity[0], 0);
    EXPECT_EQ(copy.BEHAVIOR[3], 0);
    tick(260);
    EXPECT_EQ(count_actors(), 1) << "the copies fade and end; the actor stays";
    // With no row left the spawn fails with its line, and the behaviour goes on.
    for (int who = 2; who <= 48; ++who)
        actor_at(who).Type = ACTOR_DUST;
    start(BEHAVIOR_SPAWN_TRAIL, {0, 1, 0, 0, -1}, 3);
    tick();
    EXPECT_EQ(log.take(), Lines{"[ ERROR ] : Attempted to grab object, but none available!"});
    EXPECT_TRUE(runs(3));
}

TEST_F(BehaviorTest, EventsFogAndBloomReachTheOutside)
{
    clear_jobs();
    start(BEHAVIOR_FRAMEWORK_EVENT, {7, 1, 1, 2, 3, 4, 5, 6, 7, 8});
    tick();
    BE_clear_behavior(1, 0);
    ASSERT_EQ(job_find(7), 0);
    EXPECT_EQ(job_queue[0].arguments[0], 1);
    EXPECT_EQ(job_queue[0].arguments[7], 8);
    start(BEHAVIOR_CONTROL_FOG, {0, 110});
    tick(2);
    EXPECT_EQ(job_find(JOB_DRAW_ACTOR), 1) << "one record carries the level";
    EXPECT_EQ(job_queue[1].arguments[0], 220);
    EXPECT_EQ(job_queue[2].type, JOB_FREE);
    EXPECT_EQ(ticks_to_end(), 2);
    clear_jobs();
    start(BEHAVIOR_BLOOM_CONTROL, {1, 2, 50, 10, 20, 200});
    tick();
    EXPECT_EQ(bloom.level_a, 1);
    EXPECT_EQ(bloom.level_b, 19);
    EXPECT_EQ(ticks_to_end(), 3);
    EXPECT_EQ(bloom.level_a, 0);
}

} // namespace kelu
