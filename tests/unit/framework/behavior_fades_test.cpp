// Behaviours that fade an actor, change its style, and those that act beyond it.
#include "framework/fades.h"
#include "framework/variables.h"
#include "runtime/jobs.h"
#include "unit/framework/behavior_fixture.h"

namespace kelu {

using Lines = std::vector<std::string>;

TEST_F(BehaviorTest, FadeActorFadesOutAndIn)
{
    actor.Type = ACTOR_ELEMENT;
    EXPECT_EQ(fade_actor(1, 0, 100, 0), 0);
    EXPECT_EQ(actor.actor_opacity, 254);
    EXPECT_EQ(actor.Mode, MODE_TRANSLUCENT);
    tick(2);
    EXPECT_EQ(actor.actor_opacity, 54);
    tick();
    EXPECT_EQ(actor.actor_opacity, 0);
    EXPECT_FALSE(runs());
    EXPECT_EQ(fade_actor(1, 1, 127, 3), 0);
    EXPECT_EQ(actor.actor_opacity, 1);
    tick(8);
    EXPECT_EQ(actor.actor_opacity, 254);
    EXPECT_FALSE(runs());
    EXPECT_EQ(fade_actor(-3, 1, 1, 1), 0);
    EXPECT_EQ(log.take(), Lines{"[ ERROR ] : WHO parameter OOB in call to get_free_behavior()! who = -3"});
}

TEST_F(BehaviorTest, CoarseFadesRunThroughTheirLevels)
{
    actor.Mode = MODE_SHOWN;
    start(BEHAVIOR_FADE, {0, 0});
    EXPECT_EQ(ticks_to_end(), 14);
    EXPECT_EQ(actor.actor_opacity, 13);
    EXPECT_EQ(actor.Mode, MODE_TRANSLUCENT);
    start(BEHAVIOR_FADE, {13, 1});
    EXPECT_EQ(ticks_to_end(), 14);
    EXPECT_EQ(actor.actor_opacity, 0);

    start(BEHAVIOR_INDEX_FADE, {0, 100, 4, 2});
    EXPECT_EQ(ticks_to_end(), 4);
    EXPECT_EQ(actor.fade_levels[1], 254);
    EXPECT_EQ(actor.fade_levels[0], 0);
    start(BEHAVIOR_INDEX_FADE, {1, 30, 4, 1});
    ticks_to_end();
    EXPECT_EQ(actor.actor_opacity, 0);

    start(BEHAVIOR_WHITE_FADE, {0, 0, 100});
    EXPECT_EQ(ticks_to_end(), 3);
    EXPECT_EQ(actor.Mode, MODE_WHITE);
    EXPECT_EQ(actor.actor_opacity, 200);
}

TEST_F(BehaviorTest, StylesFlip)
{
    actor.Mode = MODE_SHOWN;
    start(BEHAVIOR_BLINK, {});
    tick();
    EXPECT_EQ(actor.Mode, MODE_HIDDEN);
    tick();
    EXPECT_EQ(actor.Mode, MODE_SHOWN);
    BE_clear_behavior(1, 0);
    start(BEHAVIOR_TOGGLE_MODE, {0});
    EXPECT_EQ(ticks_to_end(), 1);
    EXPECT_EQ(actor.Mode, MODE_HIDDEN);
    actor.Mode = MODE_WHITE;
    start(BEHAVIOR_TOGGLE_MODE, {1});
    tick(3);
    EXPECT_EQ(actor.Mode, MODE_WHITE) << "only the two plain styles flip";
}

TEST_F(BehaviorTest, AGlowGoesDownRestsAndEndsWithItsCels)
{
    start(BEHAVIOR_GLOW_FADE, {13, 1, 10, 4});
    start(BEHAVIOR_GLOW_CEL, {1}, 1);
    tick(3);
    EXPECT_EQ(actor.glow.level, 10);
    EXPECT_EQ(actor.glow.cel, 29);
    tick(4);
    EXPECT_EQ(actor.glow.level, 10);
    tick(3);
    EXPECT_EQ(actor.glow.level, 13);
    EXPECT_FALSE(runs());
    EXPECT_FALSE(runs(1));
}

TEST_F(BehaviorTest, AFlashWhitensHoldsWavesAndFades)
{
    start(BEHAVIOR_FLASH_FADE_IN_OUT, {0, 0, 0, 10});
    tick(255);
    EXPECT_EQ(actor.actor_opacity, 255);
    EXPECT_EQ(actor.Mode, MODE_WHITE);
    tick(10);
    EXPECT_EQ(check_behavior(1, BEHAVIOR_MODIFY_VARIABLE), 2) << "two waves in the slots 1 and 2";
    EXPECT_EQ(ticks_to_end(), 14 * 3);
    EXPECT_EQ(actor.Mode, MODE_TRANSLUCENT);
    EXPECT_EQ(actor.actor_opacity, 13);
    EXPECT_TRUE(runs(1));
}

TEST_F(BehaviorTest, VariablesAreAddedToCappedSetAndWrapped)
{
    actor.actor_opacity = 250;
    start(BEHAVIOR_MODIFY_VARIABLE, {VARIABLE_OPACITY, 10, 1});
    tick();
    EXPECT_EQ(actor.actor_opacity, 254);
    EXPECT_FALSE(runs());
    start(BEHAVIOR_MODIFY_VARIABLE, {VARIABLE_MODE, 6, 3});
    EXPECT_EQ(ticks_to_end(), 3);
    EXPECT_EQ(actor.Mode, 6);
    start(BEHAVIOR_MODIFY_VARIABLE, {VARIABLE_POSITION, -4, 2, 2});
    ticks_to_end();
    EXPECT_EQ(z(), -8);
    start(BEHAVIOR_MODIFY_VARIABLE, {VARIABLE_POSITION, -4, 2, 3});
    ticks_to_end();
    EXPECT_EQ(z(), -8) << "there is no fourth axis";

    set_actor_v_wave(1, 1, {10, 20, 100, 0});
    const int phase = actor.waves[1].phase;
    tick(300);
    EXPECT_EQ(actor.waves[1].phase, (phase + 300 * 100) % 256);
    EXPECT_TRUE(runs(1)) << "a wave has no end";
    set_actor_h_wave(1, 4, {});
    set_actor_v_wave(50, -1, {});
    EXPECT_EQ(log.take(), (Lines{"[ ERROR ] : Couldn't locate free behavior when setting actor H wave!",
                                 "[ ERROR ] : Couldn't locate free behavior when setting actor V wave!"}));
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
    EXPECT_EQ(copy.Mode, MODE_TRANSLUCENT);
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

TEST_F(BehaviorTest, ParticlesPlasmaAndSplashKeepToTheirTables)
{
    actor.particles.total = 2;
    actor.particles.age_limit = 3;
    actor.particles.spread = 5;
    actor.particles.particles[1].direction[0] = 100;
    start(BEHAVIOR_PARTICLE, {});
    tick(2);
    EXPECT_EQ(actor.particles.particles[1].offset[0], 200);
    tick();
    EXPECT_LE(std::abs(actor.particles.particles[1].offset[0]), 5);
    actor.particles.total = 129;
    tick();
    EXPECT_EQ(log.take(), Lines{"[ ERROR ] : Number of particles owned by an object is greater than max! "
                                "part.total = 129"});
    BE_clear_behavior(1, 0);

    auto& plasma = actor.plasma;
    plasma.limits[0] = 2;
    plasma.limits[1] = plasma.limits[2] = 1000;
    plasma.field[3][4] = 254;
    start(BEHAVIOR_PLASMA, {});
    tick(6);
    EXPECT_EQ(plasma.field[3][4], 255) << "the oldest age stays";
    EXPECT_EQ(plasma.field[0][0], 3);
    plasma.limits[0] = 1000;
    plasma.limits[1] = plasma.limits[2] = 1;
    for (auto& line : plasma.field)
        line.back() = plasma_empty;
    tick();
    EXPECT_LT(plasma.field[0][30], 246) << "lit at the walkers, then moved on by a place";
    EXPECT_EQ(plasma.field[16][30], 255);
    EXPECT_EQ(plasma.field[0][31], 255);
    BE_clear_behavior(1, 0);

    actor.splash.limits[0] = 2;
    actor.splash.limits[1] = 3;
    actor.splash.limits[2] = 4;
    start(BEHAVIOR_SPLASH, {0, 0, 0, 2});
    EXPECT_EQ(ticks_to_end(), 9);
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
    EXPECT_EQ(job_queue[0].delay, 0);

    start(BEHAVIOR_CONTROL_FOG, {0, 110});
    tick(2);
    EXPECT_EQ(job_find(JOB_DRAW_ACTOR), 1) << "one record carries the level";
    EXPECT_EQ(job_queue[1].arguments[0], 220);
    EXPECT_EQ(job_queue[2].type, JOB_FREE);
    EXPECT_EQ(ticks_to_end(), 2);
    EXPECT_EQ(job_queue[1].arguments[0], 330);
    clear_jobs();

    start(BEHAVIOR_BLOOM_CONTROL, {1, 2, 50, 10, 20, 200});
    tick();
    EXPECT_EQ(bloom.value_b, 2);
    EXPECT_EQ(bloom.level_a, 1);
    EXPECT_EQ(bloom.level_b, 19);
    EXPECT_EQ(ticks_to_end(), 3);
    EXPECT_EQ(bloom.level_a, 0);
}

} // namespace kelu
