// SPDX-License-Identifier: MIT
// Behaviours whose state is a field of its own in the row: particles, plasma and splash; and the trail of copies.
#include "base/log.h"
#include "framework/behavior_steps.h"
#include "framework/behaviors.h"
#include "framework/fades.h"
#include "runtime/random.h"
#include <algorithm>

namespace kelu {
namespace {

void restart(Particle& particle, int spread)
{
    particle.age = 0;
    for (Shared16& offset : particle.offset)
        offset = rnd_script(2 * spread + 1) - spread;
}

/// Counts a parameter up to its limit; true, and back to 0, each time it gets there.
bool reaches_limit(Shared16& counter, int limit)
{
    counter = counter + 1;
    if (counter < limit) return false;
    counter = 0;
    return true;
}

void age_plasma(Plasma& plasma)
{
    for (auto& line : plasma.field) {
        for (Shared<uint8_t>& place : line) {
            if (place != plasma_empty) place = static_cast<uint8_t>(place + 1);
        }
    }
}

/// Makes the last place of a row younger.
void light(Plasma& plasma, int line, int amount)
{
    Shared<uint8_t>& place = plasma.field[line & (plasma_side - 1)].back();
    place = static_cast<uint8_t>(std::max(place - amount, 0));
}

/// Lights the rows at the walkers, and their neighbours half as much, and moves each walker by up to one row.
void walk_plasma(Plasma& plasma)
{
    for (Shared16& walker : plasma.walkers) {
        const int amount = 10 + rnd_script(10);
        light(plasma, walker, amount);
        light(plasma, walker - 1, amount / 2);
        light(plasma, walker + 1, amount / 2);
        walker = (walker + rnd_script(3) - 1) & (plasma_side - 1);
    }
}

/// Moves each row by one place away from its source; the source starts empty again.
void shift_plasma(Plasma& plasma)
{
    for (auto& line : plasma.field) {
        std::copy(line.begin() + 1, line.end(), line.begin());
        line.back() = plasma_empty;
    }
}

} // namespace

/// Its state is the particle table of the row.
Outcome BE_particle(const Run& run)
{
    Particles& all = run.actor.particles;
    const int total = all.total;
    if (total > max_particles) {
        log_line("[ ERROR ] : Number of particles owned by an object is greater than max! part.total = %d", total);
        return Outcome::GOES_ON;
    }
    for (int i = 0; i < total; ++i) {
        Particle& particle = all.particles[i];
        for (std::size_t axis = 0; axis < particle.offset.size(); ++axis)
            particle.offset[axis] = particle.offset[axis] + particle.direction[axis];
        if (reaches_limit(particle.age, all.age_limit)) restart(particle, all.spread);
    }
    return Outcome::GOES_ON;
}

/// p0 to p2: counters of aging, walking and shifting, up to the limits of the row.
Outcome BE_plasma(const Run& run)
{
    static constexpr std::array<void (*)(Plasma&), 3> works{age_plasma, walk_plasma, shift_plasma};
    Plasma& plasma = run.actor.plasma;
    for (std::size_t i = 0; i < works.size(); ++i) {
        if (reaches_limit(run.params[i], plasma.limits[i])) works[i](plasma);
    }
    return Outcome::GOES_ON;
}

/// p0 to p2: counters of the three phases, up to the limits of the row; p3: the phase, 2 down to 0.
Outcome BE_splash(const Run& run)
{
    Shared16& phase = run.params[3];
    if (phase >= 0) {
        const int now = std::min(int(phase), 2);
        if (reaches_limit(run.params[now], run.actor.splash.limits[now])) phase = static_cast<int>(now) - 1;
    }
    return phase < 0 ? Outcome::ENDS : Outcome::GOES_ON;
}

/// p0 counter, p1 runs between two copies, p2: the copies stand still, p3 interval of their fade, p4 countdown, -1:
/// without end.
Outcome BE_spawn_trail(const Run& run)
{
    auto& p = run.params;
    if (reaches_limit(p[0], p[1])) {
        const int copy = FW_grab_actor();
        if (copy >= 0) {
            Actor& actor = actor_at(copy);
            actor = run.actor;
            if (p[2] != 0) actor.actor_velocity = {};
            for (int slot = 0; slot < max_behaviors; ++slot) {
                actor.behavior_autokill[slot] = 0;
                BE_clear_behavior(copy, slot);
            }
            const int slot = fade_actor(copy, 0, 1, p[3]);
            actor.behavior_autokill[slot] = 1;
        }
    }
    return p[4] == -1 ? Outcome::GOES_ON : count_down(p[4]);
}

} // namespace kelu
