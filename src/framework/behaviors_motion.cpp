// SPDX-License-Identifier: MIT
// Behaviours that move an actor.
#include "framework/behavior_steps.h"
#include "framework/behaviors.h"
#include "runtime/random.h"
#include <allegro.h>
#include <cmath>

namespace kelu {
namespace {

constexpr int gravity = 100; // velocity gained a step, in units of 1/10000 pixel
constexpr std::size_t x_axis = 0, y_axis = 1, z_axis = 2;

/// Sum and difference that wrap, as the fixed-point words do.
int wrapped_sum(int a, int b) { return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b)); }
int wrapped_difference(int a, int b) { return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b)); }

void advance_fixed(Actor& actor)
{
    auto& place = actor.actor_fixed_pos;
    const auto& velocity = actor.actor_velocity;
    place[x_axis] = wrapped_sum(place[x_axis], velocity[x_axis]);
    place[y_axis] = wrapped_sum(place[y_axis], velocity[y_axis]);
    place[z_axis] = wrapped_difference(place[z_axis], velocity[z_axis]);
}

void place_by_fixed(Actor& actor)
{
    for (std::size_t axis = x_axis; axis <= z_axis; ++axis)
        actor.actor_pos[axis] = actor.actor_fixed_pos[axis] / fixed_units_per_pixel;
}

void fall(Actor& actor) { actor.actor_velocity[z_axis] = wrapped_sum(actor.actor_velocity[z_axis], gravity); }

void shift(Actor& actor, int dx, int dy)
{
    actor.actor_pos[x_axis] = actor.actor_pos[x_axis] + dx;
    actor.actor_pos[y_axis] = actor.actor_pos[y_axis] + dy;
}

/// One axis of a move that slows down: its way from `start` to `target`, `percent` of it at full speed. True when it
/// lost speed.
bool slow_down(Actor& actor, std::size_t axis, int start, int target, int percent)
{
    const int way = target - start;
    const int share = way == 0 ? 100 : (actor.actor_pos[axis] - start) * 100 / way;
    if (share >= 100) {
        actor.actor_velocity[axis] = 0;
        actor.actor_fixed_pos[axis] = target * fixed_units_per_pixel;
        actor.actor_pos[axis] = target;
        return false;
    }
    if (share < percent) return false;
    const int velocity = actor.actor_velocity[axis];
    actor.actor_velocity[axis] = velocity - static_cast<int>(std::lround(velocity / 4.0));
    return true;
}

/// Adds to one axis's velocity. With `stops_at_zero` a change of sign stops the axis and ends its acceleration.
void accelerate(Actor& actor, std::size_t axis, Shared16& acceleration, bool stops_at_zero)
{
    const int before = actor.actor_velocity[axis];
    const int after = wrapped_sum(before, acceleration);
    const bool stopped = stops_at_zero && ((before > 0 && after <= 0) || (before < 0 && after >= 0));
    actor.actor_velocity[axis] = stopped ? 0 : after;
    if (stopped) acceleration = 0;
}

/// Moves by p0, p1; true when the countdown p2 has run out.
bool move_straight(const Run& run)
{
    shift(run.actor, run.params[0], run.params[1]);
    return count_down(run.params[2]) == Outcome::ENDS;
}

} // namespace

/// p0 middle z, p1 angle of 256, p2 amplitude in pixels, p3 angle a run (0 counts as 1).
Outcome BE_float(const Run& run)
{
    auto& p = run.params;
    const long sine = fixsin(itofix(p[1] & 255));
    run.actor.actor_pos[z_axis] = p[0] + static_cast<int>((sine * p[2] + 0x8000) >> 16);
    p[1] = (p[1] + (p[3] == 0 ? 1 : int(p[3]))) & 255;
    return Outcome::GOES_ON;
}

/// p0 countdown, p1 dz.
Outcome BE_riser(const Run& run)
{
    run.actor.actor_pos[z_axis] = run.actor.actor_pos[z_axis] + run.params[1];
    return count_down(run.params[0]);
}

/// p0 countdown, p1 frame 0 to 2, p2 gravity on or off. The frame stands still for the last eight runs.
Outcome BE_projectile(const Run& run)
{
    auto& p = run.params;
    advance_fixed(run.actor);
    place_by_fixed(run.actor);
    if (p[2] != 0) fall(run.actor);
    if (p[0] > 8) p[1] = p[1] + 1 >= 3 ? 0 : p[1] + 1;
    return count_down(p[0]);
}

/// p0 direction (up, right, down, left), p1 state, p2 counter, p3 repeats, p4 pause, p5 pause counter. Four moves that
/// slow down, a rest, four moves back that speed up, a pause.
Outcome BE_slide_unit(const Run& run)
{
    struct State {
        int wait; // runs
        int move; // 1 out, -1 back
    };
    static constexpr std::array<State, 9> states{
        {{0, 1}, {1, 1}, {2, 1}, {3, 1}, {3, 0}, {3, -1}, {2, -1}, {1, -1}, {0, -1}}};
    static constexpr std::array<int, 4> unit_x{0, 1, 0, -1};
    static constexpr std::array<int, 4> unit_y{-1, 0, 1, 0};

    auto& p = run.params;
    const auto state = static_cast<std::size_t>(p[1]);
    if (state < states.size()) {
        const State& now = states[state];
        const int direction = p[0] & 3;
        p[2] = p[2] + 1;
        // A state that moves waits before its move; the rest takes just its runs.
        if (p[2] < now.wait + (now.move != 0 ? 1 : 0)) return Outcome::GOES_ON;
        p[2] = 0;
        p[1] = p[1] + 1;
        shift(run.actor, unit_x[direction] * now.move, unit_y[direction] * now.move);
        return Outcome::GOES_ON;
    }
    p[5] = p[5] + 1;
    if (p[5] < p[4]) return Outcome::GOES_ON;
    p[5] = 0;
    p[1] = 0;
    return count_down(p[3]);
}

/// p0 x, p1 y, p3 countdown.
Outcome BE_jitter(const Run& run)
{
    static constexpr std::array<int, 8> offset_x{0, 1, 1, 1, 0, -1, -1, -1};
    static constexpr std::array<int, 8> offset_y{-1, -1, 0, 1, 1, 1, 0, -1};
    const int offset = rnd(8);
    run.actor.actor_pos[x_axis] = run.params[0] + offset_x[offset];
    run.actor.actor_pos[y_axis] = run.params[1] + offset_y[offset];
    return count_down(run.params[3]);
}

/// p0 to p2 start, p3 to p5 target, p6 percent of the way at full speed, p7 passes a run. Ends when all three axes
/// are on the target.
Outcome BE_vector_movement_threshold(const Run& run)
{
    auto& p = run.params;
    Actor& actor = run.actor;
    for (int pass = 0; pass < p[7]; ++pass) {
        advance_fixed(actor);
        place_by_fixed(actor);
        bool slower = false;
        for (std::size_t axis = x_axis; axis <= z_axis; ++axis) {
            if (slow_down(actor, axis, p[axis], p[axis + 3], p[6])) slower = true;
        }
        if (slower) p[6] = p[6] + (100 - p[6]) / 2;
    }
    bool arrived = true;
    for (std::size_t axis = x_axis; axis <= z_axis; ++axis)
        arrived = arrived && actor.actor_pos[axis] == p[axis + 3];
    return arrived ? Outcome::ENDS : Outcome::GOES_ON;
}

/// p0 dx, p1 dy, p2 countdown. Its end ends the animation of an actor that is marked so.
Outcome BE_linear_move(const Run& run)
{
    if (!move_straight(run)) return Outcome::GOES_ON;
    if (run.actor.anim_kill != 0) clear_behaviors(run.who, BEHAVIOR_ANIMATE, -1);
    return Outcome::ENDS;
}

/// The same, and its end always ends the animation.
Outcome BE_linear_move_kill_anim(const Run& run)
{
    if (!move_straight(run)) return Outcome::GOES_ON;
    clear_behaviors(run.who, BEHAVIOR_ANIMATE, -1);
    return Outcome::ENDS;
}

/// p0 countdown, p1 to p3 acceleration, p4 stop at zero, p5 delay of the acceleration in steps, p6 gravity, p7 steps
/// a run (0 counts as 1).
Outcome BE_vector_movement(const Run& run)
{
    auto& p = run.params;
    Actor& actor = run.actor;
    const int steps = p[7] == 0 ? 1 : int(p[7]);
    for (int step = 0; step < steps; ++step) {
        advance_fixed(actor);
        if (p[6] != 0) fall(actor);
        if (p[5] > 0) {
            p[5] = p[5] - 1;
            continue;
        }
        for (std::size_t axis = x_axis; axis <= z_axis; ++axis)
            accelerate(actor, axis, p[axis + 1], p[4] != 0);
    }
    place_by_fixed(actor);
    return count_down(p[0]);
}

} // namespace kelu
