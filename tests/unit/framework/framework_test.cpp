// SPDX-License-Identifier: MIT
// What each behaviour makes of an actor, run by run, animations, any parameters at all, the screen tint, and scripts
// compiled from text. What malformed scripts do the fuzz target looks for.
#include "framework/actor_shadow.h"
#include "framework/animation.h"
#include "framework/behaviors.h"
#include "framework/script_compiler.h"
#include "framework/tint.h"
#include "framework/variables.h"
#include "runtime/random.h"
#include "support/fresh_state.h"
#include <vector>

namespace kelu {
namespace {

using Bytes = std::vector<uint8_t>;

class Framework : public test::FreshState {
protected:
    /// Puts a behaviour into a slot of actor 1, which is taken.
    void start(int id, const std::vector<int>& params, std::size_t slot = 0)
    {
        actor.Type = ACTOR_ELEMENT;
        std::ranges::copy(params, actor.behavior_params[slot].begin());
        actor.BEHAVIOR[slot] = id;
    }
    bool runs() const { return actor.BEHAVIOR[0] != 0; }
    static void tick(int n)
    {
        for (int i = 0; i < n; ++i)
            behavior_tick();
    }

    Actor& actor = actor_at(1);
};

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
    int ticks; ///< of the test, or to_the_end
    std::vector<int> params;
    std::string look;
    int ends_after = 0; ///< ticks that the behaviour lives, 0 when the test is not to its end
    void (*prepare)(Actor& actor) = [](Actor&) {}; ///< before the start
};

void shown(Actor& actor) { actor.Mode = MODE_SHOWN; }
void white(Actor& actor) { actor.Mode = MODE_WHITE; }
void turned(Actor& actor) { actor.actor_angle = 250; }
template <int x, int y, int z = 0>
void moving(Actor& actor)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        actor.actor_velocity[axis] = std::array{x, y, z}[axis];
}

constexpr auto pushed = moving<10000, 10000>;
constexpr auto nearing = moving<20000, -10000>;
constexpr auto thrown = moving<4000, -4000, 10000>;

const Case cases[] = {
    {"straight", BEHAVIOR_LINEAR_MOVE, to_the_end, {2, -1, 3}, "x6 y-3", 3},
    {"thrown, a pull from the second step on", BEHAVIOR_PROJECTILE, 2, {10, 0, 1}, "z-2", 0, thrown},
    {"thrown, truncated", BEHAVIOR_PROJECTILE, to_the_end, {10, 0, 1}, "x4 y-4 z-10", 10, thrown},
    // 20 runs of 2 steps; braked on x from the fifth step on, gravity off: 4 + 1 + 0.75 + 0.5 + 0.25.
    {"braked", BEHAVIOR_VECTOR_MOVEMENT, 2, {20, -2500, 0, 0, 1, 4, 0, 2}, "x4 y4", 0, pushed},
    {"braked to a stop", BEHAVIOR_VECTOR_MOVEMENT, to_the_end, {20, -2500, 0, 0, 1, 4, 0, 2}, "x6 y40", 20, pushed},
    {"to a target", BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD, 9, {0, 0, 0, 40, -40, 0, 50, 1}, "x18 y-9", 0, nearing},
    {"slower", BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD, 12, {0, 0, 0, 40, -40, 0, 50, 1}, "x23 y-12", 0, nearing},
    {"out", BEHAVIOR_SLIDE_UNIT, 10, {1, 0, 0, 2, 5}, "x4"},
    {"and back", BEHAVIOR_SLIDE_UNIT, to_the_end, {1, 0, 0, 2, 5}, "", 56},
    {"up", BEHAVIOR_RISER, to_the_end, {2, 1}, "z2", 2},
    {"on a wave", BEHAVIOR_FLOAT, 2, {100, 0, 10, 64}, "z110"},
    {"on a wave, once round", BEHAVIOR_FLOAT, 4, {100, 0, 10, 64}, "z90"},
    {"larger", BEHAVIOR_EXPANDER, to_the_end, {0, 3, 4}, "wide 12", 4},
    {"smaller", BEHAVIOR_EXPANDER, to_the_end, {1, 2, 4}, "wide 4", 4, [](Actor& a) { a.Diameter = 12; }},
    {"pulse", BEHAVIOR_POLY_DIAMETER_PULSE, 3, {3, 0, 0}, "wide 7", 0, [](Actor& a) { a.Diameter = 4; }},
    {"pulse and back", BEHAVIOR_POLY_DIAMETER_PULSE, 6, {3, 0, 0}, "wide 4", 0, [](Actor& a) { a.Diameter = 4; }},
    {"turn over the wrap", BEHAVIOR_ROTATE, 2, {4, 0, 20}, "turn 2", 0, turned},
    {"turn to its target", BEHAVIOR_ROTATE, to_the_end, {4, 0, 20}, "turn 18", 6, turned},
    {"second turn", BEHAVIOR_ROTATE, 1, {-1, 1, 0}, "second turn 255"},
    {"slide by a turn", BEHAVIOR_SLIDE_ROTATE, 1, {2}, "y-2 z-2 turn 6", 0, [](Actor& a) { a.actor_angle = 4; }},
    {"fade in", BEHAVIOR_FADE, to_the_end, {0, 0}, "mode 4 opacity 13", 14, shown},
    {"fade out", BEHAVIOR_FADE, to_the_end, {13, 1}, "mode 4", 14, shown},
    {"white", BEHAVIOR_WHITE_FADE, to_the_end, {0, 0, 100}, "mode 6 opacity 200", 3, shown},
    {"flash at its peak", BEHAVIOR_FLASH_FADE_IN_OUT, 255, {0, 0, 0, 10}, "mode 6 opacity 255"},
    {"flash", BEHAVIOR_FLASH_FADE_IN_OUT, to_the_end, {0, 0, 0, 10}, "mode 4 opacity 13", 255 + 10 + 14 * 3},
    {"blink off", BEHAVIOR_BLINK, 1, {}, "", 0, shown},
    {"blink on", BEHAVIOR_BLINK, 2, {}, "mode 1", 0, shown},
    {"hide", BEHAVIOR_TOGGLE_MODE, to_the_end, {0}, "", 1, shown},
    {"only the plain styles flip", BEHAVIOR_TOGGLE_MODE, 3, {1}, "mode 6", 0, white},
    {"capped", BEHAVIOR_MODIFY_VARIABLE, to_the_end, {VARIABLE_OPACITY, 300, 1}, "opacity 254", 1},
    {"set, not added to", BEHAVIOR_MODIFY_VARIABLE, to_the_end, {VARIABLE_MODE, 6, 3}, "mode 6", 3},
    {"by axis", BEHAVIOR_MODIFY_VARIABLE, to_the_end, {VARIABLE_POSITION, -4, 2, 2}, "z-8", 2},
    {"there is no fourth axis", BEHAVIOR_MODIFY_VARIABLE, to_the_end, {VARIABLE_POSITION, -4, 2, 3}, "", 2},
};

} // namespace

TEST_F(Framework, EachBehaviourByItsRuns)
{
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        reset_actors();
        test.prepare(actor);
        start(test.id, test.params);
        if (test.ticks == to_the_end) {
            tick(test.ends_after - 1);
            EXPECT_TRUE(runs());
            tick(1);
        } else {
            tick(test.ticks);
        }
        EXPECT_EQ(look_of(actor), test.look);
        EXPECT_EQ(runs(), test.ends_after == 0);
    }
}

TEST_F(Framework, AnimationsPlayTheirDurationsLoopAndEnd)
{
    FW_store_anim(1, ANIM_MOVING, 1, {{7, 1, 2}, {8, 0, 1}});
    start(BEHAVIOR_ANIMATE, {});
    std::string shown;
    for (int i = 0; i < 6; ++i) {
        tick(1);
        shown += std::to_string(int(actor.actor_cel));
    }
    EXPECT_EQ(shown, "787787");
    FW_store_anim(1, ANIM_MOVING, 0, {{7, 1, 2}, {8, 0, 1}});
    tick(10);
    EXPECT_EQ(actor.anim_table[1].cel, 0) << "the end clears the table";
    EXPECT_TRUE(runs()) << "and leaves the behaviour idle";
    actor.anim_kill = 1;
    start(BEHAVIOR_LINEAR_MOVE, {5, 5, 1}, 1);
    tick(2);
    EXPECT_FALSE(runs()) << "the end of a move takes the animation with it";
}

// Whatever stands in the parameters of any behaviour, the pass neither leaves its tables nor hangs.
TEST_F(Framework, AnyParametersAreHarmless)
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
                const int id = any.BEHAVIOR[slot] = rnd(101);
                const bool in_steps = id == BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD || id == BEHAVIOR_VECTOR_MOVEMENT;
                if (in_steps) any.behavior_params[slot][7] = rnd(9);
            }
        }
        tick(20);
        EXPECT_EQ(actor_at(0).Type, ACTOR_FREE);
        EXPECT_EQ(actor_at(49).Type, ACTOR_FREE);
        EXPECT_LE(count_actors(), 48);
    }
}

TEST_F(Framework, TintsRunAnIntervalApartAndAreHeldAndSentElsewhere)
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
    run_state.timers_locked = 0;
    // Sent elsewhere it takes no second actor; a step of zero holds it.
    FW_tint_screen(255, 0, 0, 20, 0, 0);
    tick(500);
    EXPECT_EQ(tint.tint_red, 255);
    EXPECT_EQ(tint.tint_opacity, 2);
    EXPECT_EQ(count_actors(), 1);
    // A last move that reaches the target leaves the end to the next run.
    FW_tint_screen(255, 0, 0, 0, 0, 2);
    tick(1);
    EXPECT_EQ(tint.tint_opacity, 0);
    EXPECT_EQ(count_actors(), 1);
    tick(1);
    EXPECT_EQ(count_actors(), 0);
}

TEST_F(Framework, ATintIsLaidOverTheWholePicture)
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

TEST_F(Framework, AScriptCompilesHeadsCommandsNumbersTextsAndRemarks)
{
    const Bytes expected{0xf0, 1,    50,                                // head, the rest of its line ignored
                         2,    0xf2, 0,   1,   44,                      // [02 300
                         21,   0xf2, 1,   0,   1,                       // [21 -1
                         42,   0xf2, 0,   0,   1,   0xf2, 0,   0,    9, // [42 1 9
                         0xf1, 0x22, 'A', ';', '[', '\n', '1', 0x22, 99};
    EXPECT_EQ(compile_script_text("0150 the title 77\r\n [02] 300 ; 5 6 7\n [21 -1\n\n [42] 1 9 \"A;[\r\n1\" [99]"),
              expected);
    // Up to four characters make a number; a line may end anywhere.
    EXPECT_EQ(compile_script_text(" 12345"), (Bytes{0xf2, 0, 4, 210, 0xf2, 0, 0, 5}));
    EXPECT_EQ(compile_script_text(" ["), Bytes{0});
    EXPECT_EQ(compile_script_text("7"), (Bytes{0xf0, 7, 0}));
    EXPECT_EQ(compile_script_text(""), Bytes{});
}

} // namespace kelu
