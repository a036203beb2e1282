// SPDX-License-Identifier: MIT
// The queue that carries work from the timer thread to the main thread.
#pragma once

#include "base/words.h"
#include <array>

namespace kelu {

constexpr int max_jobs = 256;

enum JobType : int {
    JOB_ANY = -1,
    JOB_FREE = 0,
    JOB_PLAY_SAMPLE = 5,
    JOB_CLEAR = 7,
    JOB_DRAW_ACTOR = 8,
    JOB_WAIT = 9,
    JOB_SCRIPT_EVENT = 10,
    JOB_APPLICATION_EVENT = 11, ///< queued by scripts; no handler here
    JOB_DRAG_WINDOW = 32,
    JOB_CHOOSE_FONT = 33, ///< the browser of fonts, over a tool's window
    JOB_DUST = 53
};

/// One record. The timer thread fills it, `type` last; the main thread clears it.
struct Job {
    Published<int> type = JOB_FREE;         ///< 0: free
    std::array<Shared<int>, 8> arguments{}; ///< a to h, by type
    Shared<int> delay = 0;                  ///< world ticks (45 Hz) until it may run
};
inline std::array<Job, max_jobs> job_queue;

/// The words a to h of a job, by its type.
using JobWords = std::array<int, 8>;

/// Fills the first free record; returns its index, or logs and returns -1 when there is none. The delay counts world
/// ticks (45 Hz).
int push_to_job(int type, const JobWords& words = {}, int delay = 0);
/// First free index, or -1.
int job_find_free();
/// First record of that type (JOB_ANY: of any), or -1.
int job_find(int type);
/// Zeroes a record.
void job_clear(int index);
/// Zeroes the whole queue.
void clear_jobs();
/// Runs every job whose delay is 0. Main thread, the last step of a frame.
void run_jobs();
/// Counts the delays down. Called by the world tick.
void count_job_delays();

/// Handler of one type: takes the record's index, does the work, clears the record before any loop of its own.
using JobHandler = void (*)(int index);
/// Makes `handler` serve a type of 1 to 63. The types of other folders are registered at start-up.
void set_job_handler(int type, JobHandler handler);

} // namespace kelu
