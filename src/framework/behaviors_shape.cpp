// SPDX-License-Identifier: MIT
// Behaviours that change an actor's size and turn it.
#include "framework/behavior_steps.h"
#include <cstdlib>

namespace kelu {
namespace {

constexpr int turn_mask = 255; // 256 steps a turn

} // namespace

/// p0 direction, 0 wider, p1 step in pixels, p2 countdown.
Outcome BE_expander(const Run& run)
{
    const int step = run.params[1];
    run.actor.Diameter = run.actor.Diameter + (run.params[0] == 0 ? step : -step);
    return count_down(run.params[2]);
}

/// p0 step, p1 axis (0 or 1), p2 angle to reach, 0: none.
Outcome BE_rotate(const Run& run)
{
    const int step = run.params[0];
    const int target = run.params[2];
    Shared16& angle = run.params[1] == 1 ? run.actor.actor_angle2 : run.actor.actor_angle;
    angle = (angle + step) & turn_mask;
    const bool reached = target != 0 && std::abs(run.actor.actor_angle - target) <= std::abs(step);
    return reached ? Outcome::ENDS : Outcome::GOES_ON;
}

/// p0 step. The actor rocks: it sinks by two pixels at one angle and rises at the opposite one.
Outcome BE_slide_rotate(const Run& run)
{
    constexpr int sinks_at = 6;
    constexpr int rises_at = 134;
    Actor& actor = run.actor;
    actor.actor_angle = (actor.actor_angle + run.params[0]) & turn_mask;
    const int shift = actor.actor_angle == sinks_at ? -2 : actor.actor_angle == rises_at ? 2 : 0;
    actor.actor_pos[1] = actor.actor_pos[1] + shift;
    actor.actor_pos[2] = actor.actor_pos[2] + shift;
    return Outcome::GOES_ON;
}

/// p0 runs in one direction, p1 runs so far, p2 direction, 0 wider.
Outcome BE_poly_diameter_pulse(const Run& run)
{
    auto& count = run.params[1];
    auto& direction = run.params[2];
    run.actor.Diameter = run.actor.Diameter + (direction == 0 ? 1 : -1);
    count = count + 1;
    if (count >= run.params[0]) {
        count = 0;
        direction = direction == 0 ? 1 : 0;
    }
    return Outcome::GOES_ON;
}

} // namespace kelu
