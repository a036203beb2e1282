// Behaviours: what actors do over time, 140 times a second.
//
// A behaviour slot holds an id, an interval, a counter and ten parameters, and the parameters are the behaviour's
// whole state, so that a slot can be saved or copied word by word. All of it runs on the timer thread: no allocation
// and no locks.
#pragma once

#include "runtime/actors.h"
#include <span>

namespace kelu {

/// Behaviours that other units start. The table in behaviors.cpp holds all of them.
enum BehaviorId : int {
    BEHAVIOR_NONE = 0,
    BEHAVIOR_ANIMATE = 4,
    BEHAVIOR_STANDING_ANIMATION = 6,
    BEHAVIOR_PALETTE_CONTROL = 22,
    BEHAVIOR_GLOW_CEL = 28,
    BEHAVIOR_LINEAR_MOVE_KILL_ANIM = 37,
    BEHAVIOR_TRUE_FADE = 69,
    BEHAVIOR_FORCE_PAUSE = 98,
    BEHAVIOR_MODIFY_VARIABLE = 99
};

/// Timer callback: ages the actors and runs the slots whose counter has passed their interval.
void behavior_tick();
/// Runs the behaviour of a slot; returns 5 after a forced pause, which holds up the actor's later slots, else 0.
int FW_check_behaviors(int who, int slot);
/// Frees a slot; where its autokill is set, destroys the actor too.
void BE_clear_behavior(int who, int slot);
/// True when both numbers lie in their tables; else logs two lines with the name of the function.
bool check_who_slot(int who, int slot, const char* name);

} // namespace kelu
