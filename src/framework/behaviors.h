// SPDX-License-Identifier: MIT
// Behaviours: what actors do over time, 140 times a second.
//
// A behaviour slot holds an id, an interval, a counter and ten parameters, and the parameters are the behaviour's
// whole state, so that a slot can be saved or copied word by word. All of it runs on the timer thread: no allocation
// and no locks.
#pragma once

#include "runtime/actors.h"

namespace kelu {

/// The repertoire, by the numbers that slots hold.
enum BehaviorId : int {
    BEHAVIOR_NONE = 0,
    BEHAVIOR_FLOAT = 2,
    BEHAVIOR_ANIMATE = 4,
    BEHAVIOR_DELAYED_ANIMATION = 5,
    BEHAVIOR_STANDING_ANIMATION = 6,
    BEHAVIOR_CONTROL_FOG = 7,
    BEHAVIOR_FADE = 9,
    BEHAVIOR_RISER = 10,
    BEHAVIOR_EXPANDER = 14,
    BEHAVIOR_PARTICLE = 15,
    BEHAVIOR_PLASMA = 16,
    BEHAVIOR_SPLASH = 17,
    BEHAVIOR_INDEX_FADE = 18,
    BEHAVIOR_PROJECTILE = 20,
    BEHAVIOR_SPAWN_TRAIL = 21,
    BEHAVIOR_PALETTE_CONTROL = 22,
    BEHAVIOR_FLASH_FADE_IN_OUT = 23,
    BEHAVIOR_SLIDE_UNIT = 24,
    BEHAVIOR_BLINK = 25,
    BEHAVIOR_JITTER = 26,
    BEHAVIOR_GLOW_FADE = 27,
    BEHAVIOR_GLOW_CEL = 28, ///< steps the cel of a glow
    BEHAVIOR_WHITE_FADE = 29,
    BEHAVIOR_ROTATE = 30,
    BEHAVIOR_SLIDE_ROTATE = 31,
    BEHAVIOR_VECTOR_MOVEMENT_THRESHOLD = 33,
    BEHAVIOR_LINEAR_MOVE = 35,
    BEHAVIOR_LINEAR_MOVE_KILL_ANIM = 37,
    BEHAVIOR_VECTOR_MOVEMENT = 39,
    BEHAVIOR_POLY_DIAMETER_PULSE = 40,
    BEHAVIOR_BLOOM_CONTROL = 60,
    BEHAVIOR_TRUE_FADE = 69,
    BEHAVIOR_FRAMEWORK_EVENT = 90,
    BEHAVIOR_TOGGLE_MODE = 97,
    BEHAVIOR_FORCE_PAUSE = 98,
    BEHAVIOR_MODIFY_VARIABLE = 99
};

/// Timer callback: ages the actors and runs the slots whose counter has passed their interval.
void behavior_tick();
/// True while there are actors beside the first, which is taken for good: somebody waits for the tick.
bool actors_live();
/// Runs the behaviour of a slot; returns 5 after a forced pause, which holds up the actor's later slots, else 0.
int FW_check_behaviors(int who, int slot);
/// One run of a behaviour in a slot, whatever the slot holds. A bad `who` or `slot`: two lines in the log, and no
/// change; an id that the table does not hold: nothing.
void run_behavior(int id, int who, int slot);
/// Frees a slot; where its autokill is set, destroys the actor too.
void BE_clear_behavior(int who, int slot);
/// True when both numbers lie in their tables; else logs two lines with the name of the function.
bool check_who_slot(int who, int slot, const char* name);

} // namespace kelu
