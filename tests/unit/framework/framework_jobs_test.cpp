// SPDX-License-Identifier: MIT
// The framework's jobs, and the samples that one of them plays.
#include "framework/framework_jobs.h"

#include "framework/actor_painter.h"
#include "framework/script.h"
#include "framework/sound.h"
#include "loop/frame.h"
#include "runtime/clock.h"
#include "runtime/jobs.h"
#include "support/fresh_state.h"
#include "support/log_lines.h"

namespace kelu {
namespace {

using Lines = std::vector<std::string>;

struct Played {
    int times = 0, volume = 0, pan = 0, frequency = 0;
};
Played played;

int note_play(const SAMPLE*, int volume, int pan, int frequency, int)
{
    ++played.times;
    played.volume = volume;
    played.pan = pan;
    played.frequency = frequency;
    return 0;
}

class FrameworkJobsTest : public test::FreshState {
protected:
    FrameworkJobsTest()
    {
        register_framework_jobs(run_frame_plain);
        played = {};
        sound.play = note_play;
        sound.samples[7].handle = &noise;
        sound.samples[7].sample_state = 0;
    }
    SAMPLE noise{};
    LogLines log;
};

} // namespace

TEST_F(FrameworkJobsTest, SamplesSoundOnceAPeriodAtTheirVolume)
{
    sound.samples[7].sample_attenuation = 0.25F;
    sfx_play(7, 1000, -1);
    EXPECT_EQ(played.volume, 96);
    EXPECT_EQ(played.pan, 128);
    EXPECT_EQ(played.frequency, 1000);
    sfx_play(7, 1000, -1);
    EXPECT_EQ(played.times, 1) << "once in a fifth of a second";
    sample_tick();
    sfx_play(7, -1, 50);
    EXPECT_EQ(played.times, 2);
    EXPECT_EQ(played.volume, 48);
    EXPECT_GE(played.frequency, 800);
    EXPECT_LT(played.frequency, 1200);
    sample_tick();
    sound.samples[7].sample_attenuation = 1;
    sfx_play(7, 1000, -1);
    EXPECT_EQ(played.times, 2) << "a silent sample is not played";
    sfx_play(100, 1000, -1);
    sfx_play(-1, 1000, -1);
    sfx_play(8, 1000, -1);
    EXPECT_EQ(log.take(), (Lines{"[ ERROR ] Sample slot is out of range in sfx_play()! Slot = 100",
                                 "[ ERROR ] Sample slot is out of range in sfx_play()! Slot = -1",
                                 "Requested invalid sample in cache. Slot = 8"}));
}

TEST_F(FrameworkJobsTest, JobsClearDrawAnswerScriptsAndSpawnDust)
{
    actor_layer.event_actor = 12;
    actor_layer.event_slot = 2;
    actor_at(5).actor_pos[0] = 40;
    actor_at(5).actor_pos[2] = 9;
    push_to_job(JOB_CLEAR);
    push_to_job(JOB_SCRIPT_EVENT, {0, 0, 0, 0, 0, 0, 0, 19});
    push_to_job(JOB_SCRIPT_EVENT, {0, 0, 0, 0, 0, 0, 0, 20}); // no such script
    push_to_job(JOB_DRAW_ACTOR, {331});                       // no such actor
    push_to_job(JOB_DUST, {5});
    push_to_job(JOB_DUST, {-1});
    run_jobs();
    EXPECT_EQ(job_find(JOB_ANY), -1);
    EXPECT_EQ(script_at(19).script_wait_actor, 12);
    EXPECT_EQ(script_at(19).script_wait_slot, 2);
    reset_script(19);
    EXPECT_EQ(count_actors(), 1);
    EXPECT_EQ(actor_at(1).Type, ACTOR_DUST);
    EXPECT_EQ(actor_at(1).Self_Destruct, 150);
    EXPECT_EQ(actor_at(1).actor_pos[0], 40);
    EXPECT_EQ(actor_at(1).actor_pos[2], 9);
    for (int who = 1; who <= 48; ++who)
        actor_at(who).Type = ACTOR_ELEMENT;
    push_to_job(JOB_DUST, {5});
    run_jobs();
    EXPECT_EQ(log.take(), (Lines{"[ ERROR ] : Attempted to grab object, but none available!",
                                 "ERROR: No free actors while spawning dust emitter! slot = -1"}));
    pause_for_object(49);
    EXPECT_EQ(log.take().back(), "[ ERROR ] : slot OOB in call to pause_for_object()! slot = 49");
}

TEST_F(FrameworkJobsTest, ActorsAreDrawnAsDiscs)
{
    Actor& actor = actor_at(2);
    actor.Type = ACTOR_ELEMENT;
    actor.Mode = MODE_WHITE;
    actor.Diameter = 5;
    actor.actor_pos[0] = 100;
    actor.actor_pos[1] = 60;
    actor.actor_pos[2] = 10;
    update_actor_shadow();
    push_to_job(JOB_DRAW_ACTOR, {2});
    run_jobs();
    BITMAP* scratch = actor_pictures.scratch_bitmap;
    EXPECT_EQ(row(scratch, 50)[100], 0xffffff);
    EXPECT_EQ(row(scratch, 50)[98], 0xffffff);
    EXPECT_EQ(row(scratch, 50)[97], mask_magenta);
    EXPECT_EQ(row(scratch, 48)[98], mask_magenta) << "the corners are round";
    actor_pictures = {};
}

} // namespace kelu
