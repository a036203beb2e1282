// SPDX-License-Identifier: MIT
// Behaviours that play an actor's animation tables.
#include "framework/behavior_steps.h"
#include "framework/behaviors.h"

#include "framework/animation.h"
#include <span>

namespace kelu {
namespace {

/// Index of the entry behind `entry`: -1 when the animation ends there.
int next_entry(std::span<const AnimEntry> table, int entry)
{
    const auto next = static_cast<std::size_t>(entry) + 1;
    const int cel = next < table.size() ? int(table[next].cel) : anim_end;
    if (cel < anim_loop) return entry + 1;
    return cel == anim_loop ? 0 : -1;
}

/// p0 runs in the present entry, p2 the entry; below 0 it counts up to the start of the animation.
Outcome play(const Run& run, std::span<AnimEntry> table, int behavior)
{
    Shared16& runs = run.params[0];
    Shared16& entry = run.params[2];
    if (entry < 0) {
        entry = entry + 1;
        if (entry == 0) clear_behaviors(run.who, behavior, run.slot);
        return Outcome::GOES_ON;
    }
    if (table[0].duration == 0 || static_cast<std::size_t>(entry) >= table.size()) return Outcome::GOES_ON;
    runs = runs + 1;
    if (runs >= table[entry].duration) {
        runs = 0;
        const int next = next_entry(table, entry);
        entry = next < 0 ? 0 : next;
        if (next < 0) {
            for (AnimEntry& spent : table)
                spent = AnimEntry{};
            if (run.actor.behavior_autokill[run.slot] != 0) FW_destroy_actor(run.who, "BE_animate");
            return Outcome::GOES_ON;
        }
    }
    const AnimEntry& shown = table[entry];
    run.actor.actor_cel = shown.cel;
    run.actor.actor_cel_option = shown.option;
    return Outcome::GOES_ON;
}

} // namespace

Outcome BE_animate(const Run& run) { return play(run, run.actor.anim_table, BEHAVIOR_ANIMATE); }

/// p2 countdown, at whose end the animation stops; the behaviour ends when there is none.
Outcome BE_delayed_animation(const Run& run)
{
    if (count_down(run.params[2]) == Outcome::GOES_ON) return Outcome::GOES_ON;
    const int animation = check_behavior(run.who, BEHAVIOR_ANIMATE);
    if (animation < 0) return Outcome::ENDS;
    BE_clear_behavior(run.who, animation);
    return Outcome::GOES_ON;
}

/// Plays the standing animation as long as nothing else moves the actor's picture.
Outcome BE_standing_animation(const Run& run)
{
    if (check_behavior(run.who, BEHAVIOR_ANIMATE) >= 0) return Outcome::GOES_ON;
    if (check_behavior(run.who, BEHAVIOR_LINEAR_MOVE_KILL_ANIM) >= 0) return Outcome::GOES_ON;
    return play(run, run.actor.stand_table, BEHAVIOR_STANDING_ANIMATION);
}

} // namespace kelu
