// The single steps of the behaviours. A step sees one slot of one actor, moves its state on by one run and says
// whether the behaviour goes on. Parameters are told at each body.
#pragma once

#include "runtime/actors.h"

namespace kelu {

enum class Outcome { GOES_ON, ENDS }; ///< ENDS: the pass frees the slot

/// A slot of an actor, in the hands of its step.
struct Run {
    int who;                                            ///< the actor's row
    int slot;                                           ///< 0 to 3
    Actor& actor;                                       ///< the row
    std::array<Shared16, behavior_param_count>& params; ///< p0 to p9
};
using BehaviorStep = Outcome (*)(const Run& run);

// behaviors_screen.cpp
Outcome BE_palette_control(const Run& run);

} // namespace kelu
