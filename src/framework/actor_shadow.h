// SPDX-License-Identifier: MIT
// The renderers' copy of the actors, which the main thread refreshes at the head of each frame.
#pragma once

#include "runtime/actors.h"

namespace kelu {

/// What a renderer sees of an actor.
struct ActorShadow : ActorLook {
    Shared16 Type = ACTOR_FREE;
};
inline std::array<ActorShadow, max_actors> actor_shadow;

/// Moves every follower to its place and copies all rows to the shadow; returns their number, 50. Main thread.
int update_actor_shadow();

} // namespace kelu
