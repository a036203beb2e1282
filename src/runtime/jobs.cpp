// SPDX-License-Identifier: MIT
// The job queue. A record is claimed and freed by its `type`, which is written last on both ways.
#include "runtime/jobs.h"

#include "base/log.h"
#include "base/run_state.h"
#include "runtime/shows.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int max_job_type = 63;
std::array<JobHandler, max_job_type + 1> handlers{}; // by type; filled at start-up

Job& job(int index) { return job_queue[index]; }

} // namespace

int push_to_job(int type, const JobWords& words, int delay)
{
    const int index = job_find_free();
    if (index < 0) {
        log_line("[ ERROR ] : Ran out of job queue slots in call to push_to_job! Job = %d", type);
        return -1;
    }
    std::ranges::copy(words, job(index).arguments.begin());
    job(index).delay = delay;
    job(index).type = type;
    return index;
}

int job_find_free()
{
    for (int i = 0; i < max_jobs; ++i) {
        if (job(i).type == JOB_FREE) return i;
    }
    return -1;
}

int job_find(int type)
{
    for (int i = 0; i < max_jobs; ++i) {
        const int held = job(i).type;
        if (held != JOB_FREE && (type == JOB_ANY || held == type)) return i;
    }
    return -1;
}

void job_clear(int index)
{
    for (Shared<int>& argument : job(index).arguments)
        argument = 0;
    job(index).delay = 0;
    job(index).type = JOB_FREE;
}

void clear_jobs()
{
    for (int i = 0; i < max_jobs; ++i)
        job_clear(i);
}

void run_jobs()
{
    for (int i = 0; i < max_jobs; ++i) {
        const int type = job(i).type;
        if (type <= 0 || type > max_job_type || job(i).delay != 0) continue;
        const JobHandler handler = handlers[type];
        if (!handler) continue;
        something_shows();
        handler(i);
    }
}

void count_job_delays()
{
    for (Job& waiting : job_queue) {
        if (waiting.type <= 0) continue;
        const int delay = waiting.delay;
        if (delay > 0) waiting.delay = delay - 1;
    }
}

void set_job_handler(int type, JobHandler handler) { handlers[type] = handler; }

} // namespace kelu
