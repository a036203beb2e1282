// The table of behaviours and the pass that runs them. Timer thread.
#include "framework/behaviors.h"

#include "framework/behavior_steps.h"
#include "runtime/log.h"
#include "runtime/run_state.h"

namespace kelu {
namespace {

constexpr int held_up = 5; // result of a run that keeps the actor's later slots out of the pass

struct BehaviorRow {
    int id;
    const char* guard; ///< name in the lines of the guard
    BehaviorStep step;
};

constexpr BehaviorRow behavior_rows[] = {
    {BEHAVIOR_PALETTE_CONTROL, "BE_palette_control()!", BE_palette_control},
};

constexpr int max_behavior_id = 99;

/// Spread out by id; an id without a row has no step.
constexpr auto behavior_table = [] {
    std::array<BehaviorRow, max_behavior_id + 1> all{};
    for (const BehaviorRow& row : behavior_rows)
        all[static_cast<std::size_t>(row.id)] = row;
    return all;
}();

void run_slots(int who, Actor& actor)
{
    for (int slot = 0; slot < max_behaviors; ++slot) {
        const auto s = static_cast<std::size_t>(slot);
        const int counter = actor.behavior_counter[s] + 1;
        const bool due = counter > actor.behavior_interval[s];
        actor.behavior_counter[s] = due ? 0 : counter;
        if (due && actor.BEHAVIOR[s] != BEHAVIOR_NONE && FW_check_behaviors(who, slot) == held_up) return;
    }
}

/// Counts an actor's life down.
void age(int who, Actor& actor)
{
    if (actor.Self_Destruct == -1) return;
    const int left = actor.Self_Destruct - 1;
    actor.Self_Destruct = left;
    if (left < 1) FW_destroy_actor(who, "FW_behavior_handler");
}

/// A puppet ends when the lead actor has changed and has come back to the puppet's master.
void watch_lead(int who, Actor& actor)
{
    const int master = actor.Suicide_buddy;
    if (master == -1) return;
    const int lead = actor_layer.lead_actor;
    const int state = actor.actor_puppet_state;
    if (state == 0 && master != lead) {
        log_line("Puppet suicide status change! obj= %d", who);
        log_line("Puppet suicide status tracker = %d", master);
        actor.actor_puppet_state = 1;
    } else if (state == 1 && master == lead) {
        log_line("Puppet suicide activation!");
        FW_destroy_actor(who, "FW_behavior_handler");
    }
}

} // namespace

void behavior_tick()
{
    if (run_state.timers_locked != 0) return;
    for (int who = 0; who < max_actors; ++who) {
        Actor& actor = actor_at(who);
        age(who, actor);
        watch_lead(who, actor);
        run_slots(who, actor);
    }
}

int FW_check_behaviors(int who, int slot)
{
    if (!check_who_slot(who, slot, "FW_check_behaviors()!")) return 0;
    Actor& actor = actor_at(who);
    const auto s = static_cast<std::size_t>(slot);
    const int id = actor.BEHAVIOR[s];
    if (id <= BEHAVIOR_NONE || id > max_behavior_id) return 0;
    const BehaviorRow& row = behavior_table[static_cast<std::size_t>(id)];
    if (!row.step) return 0;
    if (row.step(Run{who, slot, actor, actor.behavior_params[s]}) == Outcome::ENDS) BE_clear_behavior(who, slot);
    return id == BEHAVIOR_FORCE_PAUSE ? held_up : 0;
}

void BE_clear_behavior(int who, int slot)
{
    if (!check_who_slot(who, slot, "BE_clear_behavior()!")) return;
    Actor& actor = actor_at(who);
    const auto s = static_cast<std::size_t>(slot);
    actor.BEHAVIOR[s] = BEHAVIOR_NONE;
    actor.behavior_interval[s] = 0;
    actor.behavior_counter[s] = 0;
    for (Shared16& parameter : actor.behavior_params[s])
        parameter = 0;
    if (actor.behavior_autokill[s] != 0) FW_destroy_actor(who, "BE_clear_behavior");
}

bool check_who_slot(int who, int slot, const char* name)
{
    if (!actor_exists(who)) {
        log_line("[ ERROR ] : WHO parameter OOB in call to %s", name);
        log_line("[ STATS ] : who = %d", who);
        return false;
    }
    if (slot < 0 || slot >= max_behaviors) {
        log_line("[ ERROR ] : SLOT parameter OOB in call to %s", name);
        log_line("[ STATS ] : slot = %d", slot);
        return false;
    }
    return true;
}

} // namespace kelu
