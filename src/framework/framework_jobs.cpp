// SPDX-License-Identifier: MIT
// Handlers of the framework's jobs. Main thread, at the end of a frame.
#include "framework/framework_jobs.h"

#include "base/log.h"
#include "framework/actor_painter.h"
#include "framework/script.h"
#include "framework/sound.h"
#include "runtime/clock.h"
#include "runtime/jobs.h"

namespace kelu {
namespace {

constexpr int dust_life = 150;     // behaviour ticks, 140 a second
void (*run_one_frame)() = nullptr; // set with the registration; main thread

constexpr int scratch_w = 320, scratch_h = 200;

/// Argument of a record: 0 to 7 for a to h.
int argument(int index, std::size_t which) { return job_queue[index].arguments[which]; }

void play_sample_job(int index)
{
    sfx_play(argument(index, 0), argument(index, 1), argument(index, 2));
    job_clear(index);
}

void draw_actor_job(int index)
{
    const int who = argument(index, 0);
    Bitmap& scratch = actor_pictures.scratch_bitmap;
    if (!scratch) scratch = Bitmap(scratch_w, scratch_h, mask_magenta);
    if (scratch && actor_exists(who)) draw_actor(scratch, actor_shadow[who]);
    job_clear(index);
}

/// The record is cleared before the wait, whose frames would else run it again.
void wait_job(int index)
{
    const int counts = argument(index, 0);
    job_clear(index);
    wait_ticks(counts, run_one_frame);
}

void script_event_job(int index)
{
    const int slot = argument(index, 7);
    job_clear(index);
    if (!script_slot_exists(slot)) return;
    script_at(slot).script_wait_actor = actor_layer.event_actor;
    script_at(slot).script_wait_slot = actor_layer.event_slot;
}

void dust_job(int index)
{
    const int source = argument(index, 0);
    job_clear(index);
    if (!actor_exists(source)) return;
    const int who = FW_grab_actor();
    if (who < 0) {
        log_line("ERROR: No free actors while spawning dust emitter! slot = %d", who);
        return;
    }
    FW_destroy_actor(who, "dust_job");
    Actor& dust = actor_at(who);
    dust.actor_pos = actor_at(source).actor_pos;
    dust.Profession = PROFESSION_ELEMENT;
    dust.Self_Destruct = dust_life;
    dust.Type = ACTOR_DUST;
}

struct HandlerRow {
    JobType type;
    JobHandler handler;
};
constexpr HandlerRow handler_rows[] = {
    {JOB_PLAY_SAMPLE, play_sample_job},   {JOB_CLEAR, job_clear},
    {JOB_DRAW_ACTOR, draw_actor_job},     {JOB_WAIT, wait_job},
    {JOB_SCRIPT_EVENT, script_event_job}, {JOB_DUST, dust_job},
};

} // namespace

void register_framework_jobs(void (*run_frame)())
{
    run_one_frame = run_frame;
    for (const HandlerRow& row : handler_rows)
        set_job_handler(row.type, row.handler);
}

void pause_for_object(int who)
{
    if (!check_actor(who)) {
        log_line("[ ERROR ] : slot OOB in call to pause_for_object()! slot = %d", who);
        return;
    }
    while (actor_at(who).Type != ACTOR_FREE)
        run_one_frame();
}

} // namespace kelu
