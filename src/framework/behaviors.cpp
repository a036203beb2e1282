// SPDX-License-Identifier: MIT
// The table of behaviours and the pass that runs them. Timer thread.
#include "framework/behaviors.h"

#include "base/log.h"
#include "base/run_state.h"
#include "framework/behavior_steps.h"
#include <algorithm>
#include <iterator>

namespace kelu {
namespace {

constexpr int held_up = 5; // result of a run that keeps the actor's later slots out of the pass

struct BehaviorRow {
    int id;
    const char* guard; ///< name in the lines of the guard
    BehaviorStep step;
};

constexpr BehaviorRow behavior_rows[] = {
    {BEHAVIOR_FLOAT, "BE_float()!", BE_float},
    {BEHAVIOR_ANIMATE, "BE_animate()!", BE_animate},
    {BEHAVIOR_DELAYED_ANIMATION, "BE_delayed_animation()!", BE_delayed_animation},
    {BEHAVIOR_STANDING_ANIMATION, "BE_standing_animation()!", BE_standing_animation},
    {BEHAVIOR_CONTROL_FOG, "BE_control_fog()!", BE_control_fog},
    {BEHAVIOR_FADE, "BE_fade()!", BE_fade},
    {BEHAVIOR_RISER, "BE_riser()!", BE_riser},
    {BEHAVIOR_EXPANDER, "BE_expander()!", BE_expander},
    {BEHAVIOR_PARTICLE, "BE_particle()!", BE_particle},
    {BEHAVIOR_PLASMA, "BE_plasma()!", BE_plasma},
    {BEHAVIOR_SPLASH, "BE_splash()!", BE_splash},
    {BEHAVIOR_INDEX_FADE, "BE_index_fade()!", BE_index_fade},
    {BEHAVIOR_PROJECTILE, "BE_projectile()!", BE_projectile},
    {BEHAVIOR_SPAWN_TRAIL, "BE_spawn_trail()!", BE_spawn_trail},
    {BEHAVIOR_PALETTE_CONTROL, "BE_palette_control()!", BE_palette_control},
    {BEHAVIOR_FLASH_FADE_IN_OUT, "BE_flash_fade_in_out()!", BE_flash_fade_in_out},
    {BEHAVIOR_SLIDE_UNIT, "BE_slide_unit()!", BE_slide_unit},
    {BEHAVIOR_BLINK, "BE_blink()!", BE_blink},
    {BEHAVIOR_JITTER, "BE_jitter()!", BE_jitter},
    {BEHAVIOR_GLOW_FADE, "BE_glow_fade()!", BE_glow_fade},
    {BEHAVIOR_GLOW_CEL, "", BE_glow_cel},
    {BEHAVIOR_WHITE_FADE, "BE_white_fade()!", BE_white_fade},
    {BEHAVIOR_ROTATE, "BE_rotate()!", BE_rotate},
    {BEHAVIOR_SLIDE_ROTATE, "BE_slide_rotate()!", BE_slide_rotate},
    {BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD, "BE_vector_movement_threshold()!", BE_vector_movement_threshold},
    {BEHAVIOR_LINEAR_MOVE, "BE_linear_move()!", BE_linear_move},
    {BEHAVIOR_LINEAR_MOVE_KILL_ANIM, "BE_linear_move_kill_anim()!", BE_linear_move_kill_anim},
    {BEHAVIOR_VECTOR_MOVEMENT, "BE_vector_movement()!", BE_vector_movement},
    {BEHAVIOR_POLY_DIAMETER_PULSE, "BE_poly_diameter_pulse()!", BE_poly_diameter_pulse},
    {BEHAVIOR_BLOOM_CONTROL, "BE_bloom_control()!", BE_bloom_control},
    {BEHAVIOR_TRUE_FADE, "BE_true_fade()!", BE_true_fade},
    {BEHAVIOR_FRAMEWORK_EVENT, "BE_framework_event()!", BE_framework_event},
    {BEHAVIOR_TOGGLE_MODE, "BE_toggle_mode()!", BE_toggle_mode},
    {BEHAVIOR_FORCE_PAUSE, "BE_force_pause()!", BE_force_pause},
    {BEHAVIOR_MODIFY_VARIABLE, "BE_modify_variable()!", BE_modify_variable},
};

constexpr int max_behavior_id = BEHAVIOR_MODIFY_VARIABLE;
static_assert(std::is_sorted(std::begin(behavior_rows), std::end(behavior_rows),
                             [](const BehaviorRow& a, const BehaviorRow& b) { return a.id < b.id; }));

/// Spread out by id; an id without a row has no step.
constexpr auto behavior_table = [] {
    std::array<BehaviorRow, max_behavior_id + 1> all{};
    for (const BehaviorRow& row : behavior_rows)
        all[row.id] = row;
    return all;
}();

void run_slots(int who, Actor& actor)
{
    for (int slot = 0; slot < max_behaviors; ++slot) {
        const int counter = actor.behavior_counter[slot] + 1;
        const bool due = counter > actor.behavior_interval[slot];
        actor.behavior_counter[slot] = due ? 0 : counter;
        if (due && actor.BEHAVIOR[slot] != BEHAVIOR_NONE && FW_check_behaviors(who, slot) == held_up) return;
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

bool actors_live()
{
    return std::any_of(actors.begin() + 1, actors.end(), [](const Actor& actor) { return actor.Type != ACTOR_FREE; });
}

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
    const int id = actor_at(who).BEHAVIOR[slot];
    run_behavior(id, who, slot);
    return id == BEHAVIOR_FORCE_PAUSE ? held_up : 0;
}

void run_behavior(int id, int who, int slot)
{
    if (id <= BEHAVIOR_NONE || id > max_behavior_id) return;
    const BehaviorRow& row = behavior_table[id];
    if (!row.step || !check_who_slot(who, slot, row.guard)) return;
    Actor& actor = actor_at(who);
    const Run run{who, slot, actor, actor.behavior_params[slot]};
    if (row.step(run) == Outcome::ENDS) BE_clear_behavior(who, slot);
}

void BE_clear_behavior(int who, int slot)
{
    if (!check_who_slot(who, slot, "BE_clear_behavior()!")) return;
    Actor& actor = actor_at(who);
    actor.BEHAVIOR[slot] = BEHAVIOR_NONE;
    actor.behavior_interval[slot] = 0;
    actor.behavior_counter[slot] = 0;
    for (Shared16& parameter : actor.behavior_params[slot])
        parameter = 0;
    if (actor.behavior_autokill[slot] != 0) FW_destroy_actor(who, "BE_clear_behavior");
}

void clear_behaviors(int who, int behavior, int kept_slot)
{
    for (int slot = 0; slot < max_behaviors; ++slot) {
        if (slot == kept_slot || actor_at(who).BEHAVIOR[slot] != behavior) continue;
        BE_clear_behavior(who, slot);
    }
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
