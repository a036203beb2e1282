// SPDX-License-Identifier: MIT
// Running of scripts. Timer thread: no allocation and no locks, though every command leaves a line in the log.
#include "framework/script.h"

#include "base/log.h"
#include "base/run_state.h"
#include "framework/bubbles.h"
#include "framework/fades.h"
#include "runtime/actors.h"
#include "runtime/jobs.h"
#include "runtime/view.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int last_pc = 1000; // a script that gets beyond this word is taken for one that never ends
constexpr int words_per_arg = 4;

/// What a pass over the slots knows beyond them.
struct Pass {
    int last_job = -1; // record last taken by a command of this pass
    bool ended = false;
};

/// A command's view of its slot. The arguments have been read where the row asks for it.
struct Command {
    int slot;
    ScriptSlot& script;
    Pass& pass;
    int arg(std::size_t index) const { return script.script_args[index]; }
};

/// Word of a program; behind its last word it has ended.
int word_at(const ScriptSlot& script, int index)
{
    return index >= 0 && index < script_program_size ? int(script.script_program[index]) : SCRIPT_END;
}

void sleep(const Command& c) { c.script.script_wait = c.arg(0); }

/// Waits for the stored behaviour, or first for that behaviour to be stored.
void wait_for_behavior(const Command& c)
{
    ScriptSlot& script = c.script;
    const int who = script.script_wait_actor;
    const int slot = script.script_wait_slot;
    if (who == -1 || slot == -1) {
        script.script_pending = 1;
        return;
    }
    script.script_pending = 0;
    const bool known = actor_exists(who) && slot >= 0 && slot < max_behaviors;
    const bool runs = known && actor_at(who).BEHAVIOR[slot] != 0;
    script.script_waiting = runs ? 1 : 0;
    if (runs) return;
    script.script_wait_actor = -1;
    script.script_wait_slot = -1;
}

/// Queues a job with the arguments behind the first, and the slot as its last word.
void queue_event(const Command& c, int type)
{
    if (job_find_free() < 0) {
        log_line("[ ERROR ] : Ran out of job queue slots inside script! Job = %d", -1);
        c.pass.ended = true;
        return;
    }
    c.pass.last_job = push_to_job(type, {c.arg(1), c.arg(2), c.arg(3), c.arg(4), 0, 0, 0, c.slot});
}

void queue_script_event(const Command& c) { queue_event(c, JOB_SCRIPT_EVENT); }
void queue_application_event(const Command& c) { queue_event(c, JOB_APPLICATION_EVENT); }

void aim_camera(const Command& c) { actor_layer.camera_target = c.arg(0) == -1 ? -1 : int(actor_layer.lead_actor); }

void move_view(const Command& c)
{
    view.pan_x = c.arg(0);
    view.pan_y = c.arg(1);
}

void say(const Command& c)
{
    const int pc = c.script.script_pc;
    const int life = c.arg(1);
    const int taken = read_string(c.slot, pc);
    c.script.script_pc = pc + taken;
    // A text that could not be read to its end leaves the pen where it stood.
    if (taken == 1) return;
    std::array<char, script_string_size> text{};
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = c.script.script_string[i];
    bubble_say(c.script.script_owner, life, text.data());
}

void fade(const Command& c)
{
    constexpr int step = 2;
    const int named = c.arg(0);
    int who = c.script.script_owner;
    if (named != -1) {
        const bool kept = named >= 0 && named < script_var_count;
        who = kept ? int(c.script.script_vars[named]) : -1;
    }
    fade_actor(who, c.arg(1), step, c.arg(2));
    c.script.script_wait_actor = actor_layer.event_actor;
    c.script.script_wait_slot = actor_layer.event_slot;
}

/// Keeps the index of the job that this pass took last; -1 when it took none.
void keep_job(const Command& c, int variable)
{
    if (variable < 0 || variable >= script_var_count) return;
    c.script.script_vars[variable] = static_cast<uint8_t>(c.pass.last_job);
}

void keep_job_by_fifth(const Command& c) { keep_job(c, c.arg(4)); }
void keep_job_by_seventh(const Command& c) { keep_job(c, c.arg(6)); }
void end(const Command& c) { c.script.script_active = 0; }
void do_nothing(const Command&) {}

enum ScriptCommand : int { COMMAND_WAIT_FOR_BEHAVIOR = 3 };

struct CommandRow {
    int code;
    bool reads_args;
    void (*run)(const Command& command);
};

/// The commands. A code that isn't here is passed over as one word.
constexpr CommandRow command_rows[] = {
    {2, true, sleep},
    {COMMAND_WAIT_FOR_BEHAVIOR, false, wait_for_behavior},
    {10, true, queue_script_event},
    {12, true, do_nothing},
    {20, true, queue_application_event},
    {21, true, aim_camera},
    {22, true, move_view},
    {41, true, do_nothing},
    {42, true, say},
    {60, true, fade},
    {70, true, keep_job_by_fifth},
    {71, true, keep_job_by_seventh},
    {99, false, end},
    {SCRIPT_END, false, end},
};

void run_command(int code, const Command& command)
{
    log_line("scribe command = %d", code);
    for (const CommandRow& row : command_rows) {
        if (row.code != code) continue;
        ScriptSlot& script = command.script;
        if (row.reads_args) script.script_pc = script.script_pc + read_args(command.slot, script.script_pc);
        row.run(command);
        return;
    }
}

void step(int slot, ScriptSlot& script, Pass& pass)
{
    const int sleeping = script.script_wait;
    if (sleeping >= 1) {
        script.script_wait = sleeping - 1;
        return;
    }
    const bool waits = script.script_waiting != 0 || script.script_pending != 0;
    run_command(waits ? int(COMMAND_WAIT_FOR_BEHAVIOR) : word_at(script, script.script_pc), {slot, script, pass});
    if (pass.ended || script.script_waiting != 0 || script.script_pending != 0) return;
    script.script_pc = script.script_pc + 1;
    if (script.script_pc <= last_pc) return;
    log_line("[ ERROR ] : Infinite loop encountered in script slot %d", slot);
    script.script_active = 0;
    pass.ended = true;
}

void age_displacers()
{
    for (WaveDisplacer& wave : wave_displacers) {
        if (wave.running == 0) continue;
        wave.counter = wave.counter + 1;
        if (wave.counter > wave.limit) wave.ended = 1;
    }
}

} // namespace

int read_args(int slot, int pc)
{
    ScriptSlot& script = script_at(slot);
    script.script_args = {};
    for (std::size_t count = 0; count < script.script_args.size(); ++count) {
        const int at = pc + 1 + static_cast<int>(count) * words_per_arg;
        if (word_at(script, at) != SCRIPT_NUMBER) return static_cast<int>(count) * words_per_arg;
        const int magnitude = word_at(script, at + 2) * 256 + word_at(script, at + 3);
        const int value = word_at(script, at + 1) == 1 ? -magnitude : magnitude;
        script.script_args[count] = value;
        log_line("script arg found! value = %d", value);
    }
    log_line("[ ERROR ] : MAXIMUM NUMBER OF SCRIPT ARGUMENTS EXCEEDED! Offset = %d", pc);
    return script_arg_count * words_per_arg + 1;
}

int read_string(int slot, int pc)
{
    ScriptSlot& script = script_at(slot);
    script.script_string = {};
    bool inside = false;
    std::size_t length = 0;
    for (int at = pc + 1;; ++at) {
        const int word = word_at(script, at);
        if (word == SCRIPT_END) {
            log_line("[ ERROR ] : PROBLEMS PROCESSING SCRIPT STRING! offset = %d", at);
            return 1;
        }
        if (word == SCRIPT_QUOTE) {
            log_line(">> found quote mark at offset = %d", at);
            if (inside) return at - pc;
            inside = true;
        } else if (inside) {
            if (length == script.script_string.size() - 1) {
                log_line("[ ERROR ] : PROBLEMS TRANSFERRING SCRIPT STRING! offset = %d", at);
                return 1;
            }
            script.script_string[length++] = static_cast<char>(word);
        }
    }
}

bool scripts_run()
{
    return std::ranges::any_of(scripts, [](const ScriptSlot& script) { return script.script_active != 0; }) ||
           std::ranges::any_of(wave_displacers, [](const WaveDisplacer& wave) { return wave.running != 0; });
}

void script_tick()
{
    if (run_state.timers_locked != 0) return;
    Pass pass;
    for (int slot = 0; slot < max_scripts; ++slot) {
        ScriptSlot& script = script_at(slot);
        if (script.script_active == 0) continue;
        step(slot, script, pass);
        if (pass.ended) return;
    }
    age_displacers();
}

} // namespace kelu
