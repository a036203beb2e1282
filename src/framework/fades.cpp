// SPDX-License-Identifier: MIT
// Starting of fades and waves: parameters first, the behaviour's id last, since the timer looks at it.
#include "framework/fades.h"

#include "base/log.h"
#include "framework/behaviors.h"
#include "framework/variables.h"
#include "runtime/random.h"

namespace kelu {
namespace {

void start_wave(int who, int slot, const WaveShape& shape, std::size_t axis, const char* complaint)
{
    const int taken = slot == -1 && actor_exists(who) ? get_free_behavior(who) : slot;
    if (!actor_exists(who) || taken < 0 || taken >= max_behaviors) {
        log_line(complaint);
        return;
    }
    Actor& actor = actor_at(who);
    Wave& wave = actor.waves[axis];
    wave.a = shape.a;
    wave.b = shape.b;
    wave.phase = rnd(255);

    auto& params = actor.behavior_params[taken];
    actor.BEHAVIOR[taken] = BEHAVIOR_NONE;
    params[0] = VARIABLE_WAVE_PHASE;
    params[1] = shape.amount;
    params[2] = 0;
    params[3] = static_cast<int>(axis);
    actor.behavior_interval[taken] = shape.interval;
    actor.BEHAVIOR[taken] = BEHAVIOR_MODIFY_VARIABLE;
}

} // namespace

int fade_actor(int who, int mode, int step, int interval)
{
    const int slot = get_free_behavior(who);
    if (!actor_exists(who)) return 0;
    Actor& actor = actor_at(who);
    actor.BEHAVIOR[slot] = BEHAVIOR_NONE;
    actor.behavior_params[slot][0] = mode == 0 ? -step : step;
    actor.actor_opacity = mode == 0 ? max_opacity : 1;
    actor.Mode = MODE_TRANSLUCENT;
    actor.behavior_interval[slot] = interval;
    actor.behavior_counter[slot] = 0;
    actor.BEHAVIOR[slot] = BEHAVIOR_TRUE_FADE;
    return slot;
}

void set_actor_h_wave(int who, int slot, const WaveShape& shape)
{
    start_wave(who, slot, shape, 0, "[ ERROR ] : Couldn't locate free behavior when setting actor H wave!");
}

void set_actor_v_wave(int who, int slot, const WaveShape& shape)
{
    start_wave(who, slot, shape, 1, "[ ERROR ] : Couldn't locate free behavior when setting actor V wave!");
}

} // namespace kelu
