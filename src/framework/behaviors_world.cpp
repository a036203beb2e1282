// SPDX-License-Identifier: MIT
// Behaviours that act beyond their actor: the tint and the bloom of the screen, jobs, and the other slots.
#include "framework/behavior_steps.h"
#include "framework/tint.h"
#include "runtime/jobs.h"
#include "runtime/random.h"

namespace kelu {
namespace {

constexpr int lowest_fog = 1;
constexpr int highest_fog = 331;

/// First job record that is free or already draws an actor, or -1.
int find_fog_job()
{
    for (int index = 0; index < max_jobs; ++index) {
        const int type = job_queue[index].type;
        if (type == JOB_FREE || type == JOB_DRAW_ACTOR) return index;
    }
    return -1;
}

} // namespace

/// p0 level, p1 step. Hands the level to the main thread, by a job record that it keeps reusing.
Outcome BE_control_fog(const Run& run)
{
    const int level = run.params[0] + run.params[1];
    run.params[0] = level;
    if (level < lowest_fog || level > highest_fog) return Outcome::ENDS;
    const int index = find_fog_job();
    if (index < 0) return Outcome::GOES_ON;
    Job& job = job_queue[index];
    job.arguments[0] = level;
    job.type = JOB_DRAW_ACTOR;
    return Outcome::GOES_ON;
}

/// p0 to p2 colour, p3 opacity to reach, p4 moves a run; below 1 the colour is held for good. A run that makes its
/// last move goes on, and the next one sees that the opacity is reached.
Outcome BE_palette_control(const Run& run)
{
    const auto& p = run.params;
    tint.tint_red = p[0];
    tint.tint_green = p[1];
    tint.tint_blue = p[2];
    const int target = p[3];
    const int moves = p[4];
    if (moves < 1) return Outcome::GOES_ON;
    int opacity = tint.tint_opacity;
    Outcome outcome = Outcome::GOES_ON;
    for (int move = 0; move < moves && outcome == Outcome::GOES_ON; ++move) {
        if (opacity == target) {
            outcome = Outcome::ENDS;
        } else {
            opacity += opacity < target ? 1 : -1;
        }
    }
    tint.tint_opacity = opacity;
    return outcome;
}

/// p0, p1 values, p2, p3 rates in percent of 10, p4, p5 levels x 10.
Outcome BE_bloom_control(const Run& run)
{
    auto& p = run.params;
    p[4] = p[4] - p[2] * 10 / 100;
    p[5] = p[5] - p[3] * 10 / 100;
    bloom.value_a = p[0];
    bloom.value_b = p[1];
    bloom.level_a = p[4] / 10;
    bloom.level_b = p[5] / 10;
    return p[4] <= 0 || p[5] <= 0 ? Outcome::ENDS : Outcome::GOES_ON;
}

/// p0 job type, p1 range of the random delay (45 Hz), p2 to p9 the job's words.
Outcome BE_framework_event(const Run& run)
{
    const auto& p = run.params;
    push_to_job(p[0], {p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9]}, rnd_script(p[1]));
    return Outcome::GOES_ON;
}

/// p0 countdown. That it holds up the later slots is the pass's affair.
Outcome BE_force_pause(const Run& run) { return count_down(run.params[0]); }

} // namespace kelu
