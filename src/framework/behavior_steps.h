// SPDX-License-Identifier: MIT
// The single steps of the behaviours. A step sees one slot of one actor, moves its state on by one run and says
// whether the behaviour goes on. The parameters, p0 to p9, are described at each body.
#pragma once

#include "runtime/actors.h"

namespace kelu {

enum class Outcome { GOES_ON, ENDS }; ///< ENDS: the pass frees the slot

/// A slot of an actor, as its step sees it.
struct Run {
    int who;                                            ///< the actor's row
    int slot;                                           ///< 0 to 3
    Actor& actor;                                       ///< the row
    std::array<Shared16, behavior_param_count>& params; ///< p0 to p9
};
using BehaviorStep = Outcome (*)(const Run& run);

/// Counts a parameter down by one; ENDS when it has reached 0.
inline Outcome count_down(Shared16& countdown)
{
    countdown = countdown - 1;
    return countdown < 1 ? Outcome::ENDS : Outcome::GOES_ON;
}
/// Clears every slot of the actor that holds the behaviour, but for `kept_slot` (-1: none is kept).
void clear_behaviors(int who, int behavior, int kept_slot);

// behaviors_motion.cpp: places
Outcome BE_float(const Run& run);
Outcome BE_riser(const Run& run);
Outcome BE_projectile(const Run& run);
Outcome BE_slide_unit(const Run& run);
Outcome BE_jitter(const Run& run);
Outcome BE_vector_movement_threshold(const Run& run);
Outcome BE_linear_move(const Run& run);
Outcome BE_linear_move_kill_anim(const Run& run);
Outcome BE_vector_movement(const Run& run);

// behaviors_animation.cpp: cels
Outcome BE_animate(const Run& run);
Outcome BE_delayed_animation(const Run& run);
Outcome BE_standing_animation(const Run& run);

// behaviors_fades.cpp: opacities and drawing styles
Outcome BE_fade(const Run& run);
Outcome BE_index_fade(const Run& run);
Outcome BE_flash_fade_in_out(const Run& run);
Outcome BE_blink(const Run& run);
Outcome BE_glow_fade(const Run& run);
Outcome BE_glow_cel(const Run& run);
Outcome BE_white_fade(const Run& run);
Outcome BE_true_fade(const Run& run);
Outcome BE_toggle_mode(const Run& run);

// behaviors_shape.cpp: sizes and turns
Outcome BE_expander(const Run& run);
Outcome BE_rotate(const Run& run);
Outcome BE_slide_rotate(const Run& run);
Outcome BE_poly_diameter_pulse(const Run& run);

// behaviors_effects.cpp: particles, plasma, splash, trails
Outcome BE_particle(const Run& run);
Outcome BE_plasma(const Run& run);
Outcome BE_splash(const Run& run);
Outcome BE_spawn_trail(const Run& run);

// behaviors_world.cpp: what lies beyond the actor
Outcome BE_control_fog(const Run& run);
Outcome BE_palette_control(const Run& run);
Outcome BE_bloom_control(const Run& run);
Outcome BE_framework_event(const Run& run);
Outcome BE_force_pause(const Run& run);

// behaviors_variable.cpp: any field by its number
Outcome BE_modify_variable(const Run& run);

} // namespace kelu
