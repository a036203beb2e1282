// SPDX-License-Identifier: MIT
// Behaviours that fade an actor or change its drawing style.
#include "framework/behavior_steps.h"
#include "framework/behaviors.h"
#include "framework/fades.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int last_fade_level = 13; // levels of the coarse fades and of the glow: 0 to 13
constexpr int glow_cels = 32;

/// An actor that is shown in full becomes translucent.
void show_translucent(Actor& actor)
{
    if (actor.Mode == MODE_SHOWN) actor.Mode = MODE_TRANSLUCENT;
}

void flip_mode(Actor& actor)
{
    if (actor.Mode == MODE_SHOWN) {
        actor.Mode = MODE_HIDDEN;
    } else if (actor.Mode == MODE_HIDDEN) {
        actor.Mode = MODE_SHOWN;
    }
}

} // namespace

/// p0 level 0 to 13, p1 direction, 0 up.
Outcome BE_fade(const Run& run)
{
    const int level = run.params[0] + (run.params[1] == 0 ? 1 : -1);
    run.params[0] = level;
    if (level < 0 || level > last_fade_level) return Outcome::ENDS;
    run.actor.actor_opacity = level;
    show_translucent(run.actor);
    return Outcome::GOES_ON;
}

/// p0 direction, 0 up, p1 step, p2 countdown, p3 channel: 1 the opacity, 0 and 2 the two other levels.
Outcome BE_index_fade(const Run& run)
{
    auto& p = run.params;
    const int channel = p[3];
    if (channel >= 0 && channel <= 2) {
        Shared16& level = channel == 1 ? run.actor.actor_opacity : run.actor.fade_levels[channel / 2];
        level = std::clamp(level + (p[0] == 0 ? int(p[1]) : -p[1]), 0, max_opacity);
    }
    return count_down(p[2]);
}

/// p0 level, p1 phase, p2 counter, p3 runs to hold. Phase 0 whitens, phase 1 holds and starts two waves, phase 2 fades.
Outcome BE_flash_fade_in_out(const Run& run)
{
    constexpr int runs_per_level = 3;
    constexpr WaveShape shape{32, 4, 4, 0};
    auto& level = run.params[0];
    auto& phase = run.params[1];
    auto& counter = run.params[2];
    if (phase == 0) {
        run.actor.Mode = MODE_WHITE;
        level = level + 1;
        if (level >= 255) phase = 1;
    } else if (phase == 1) {
        counter = counter + 1;
        if (counter < run.params[3]) return Outcome::GOES_ON;
        phase = 2;
        counter = 0;
        level = 0;
        set_actor_h_wave(run.who, -1, shape);
        set_actor_v_wave(run.who, -1, shape);
        return Outcome::GOES_ON;
    } else {
        run.actor.Mode = MODE_TRANSLUCENT;
        counter = counter + 1;
        if (counter < runs_per_level) return Outcome::GOES_ON;
        counter = 0;
        level = level + 1;
        if (level > last_fade_level) return Outcome::ENDS;
    }
    run.actor.actor_opacity = level;
    return Outcome::GOES_ON;
}

Outcome BE_blink(const Run& run)
{
    flip_mode(run.actor);
    return Outcome::GOES_ON;
}

/// p0 level, p1 phase, p2 lowest level, p3 pause. Phase 0 goes up to the end of the glow, phase 1 down to the lowest
/// level, phase 2 pauses there; a whole glow starts in phase 1.
Outcome BE_glow_fade(const Run& run)
{
    auto& level = run.params[0];
    auto& phase = run.params[1];
    auto& pause = run.params[3];
    if (phase == 0) {
        level = level + 1;
    } else if (phase == 1) {
        level = level - 1;
        if (level <= run.params[2]) phase = 2;
    } else if (count_down(pause) == Outcome::ENDS) {
        phase = 0;
    }
    run.actor.glow.level = level;
    if (phase != 0 || level < last_fade_level) return Outcome::GOES_ON;
    clear_behaviors(run.who, BEHAVIOR_GLOW_CEL, -1);
    return Outcome::ENDS;
}

/// p0 direction, 0 up.
Outcome BE_glow_cel(const Run& run)
{
    const int step = run.params[0] == 0 ? 1 : glow_cels - 1;
    run.actor.glow.cel = (run.actor.glow.cel + step) % glow_cels;
    return Outcome::GOES_ON;
}

/// p0 level 0 to 255, p1 direction, 0 up, p2 step.
Outcome BE_white_fade(const Run& run)
{
    const int step = run.params[2];
    const int level = run.params[0] + (run.params[1] == 0 ? step : -step);
    run.params[0] = level;
    run.actor.Mode = MODE_WHITE;
    if (level < 0 || level > 255) return Outcome::ENDS;
    run.actor.actor_opacity = level;
    return Outcome::GOES_ON;
}

/// p0 step.
Outcome BE_true_fade(const Run& run)
{
    const int opacity = run.actor.actor_opacity + run.params[0];
    run.actor.actor_opacity = std::clamp(opacity, 0, max_opacity);
    show_translucent(run.actor);
    return opacity < 1 || opacity >= 255 ? Outcome::ENDS : Outcome::GOES_ON;
}

/// p0: 0 flips once, else at each run.
Outcome BE_toggle_mode(const Run& run)
{
    flip_mode(run.actor);
    return run.params[0] == 0 ? Outcome::ENDS : Outcome::GOES_ON;
}

} // namespace kelu
