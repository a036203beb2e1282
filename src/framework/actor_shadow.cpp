// SPDX-License-Identifier: MIT
// Followers, and the copy of the actors that is drawn.
#include "framework/actor_shadow.h"

namespace kelu {
namespace {

void follow(Actor& actor)
{
    const int followed = actor.actor_follow;
    if (!actor_exists(followed)) return;
    for (std::size_t axis = 0; axis < actor.actor_pos.size(); ++axis) {
        if (actor.follow.locked[axis] != 0) continue;
        actor.actor_pos[axis] = actor_at(followed).actor_pos[axis] + actor.follow.offset[axis];
    }
}

} // namespace

int update_actor_shadow()
{
    for (std::size_t who = 0; who < actors.size(); ++who) {
        follow(actors[who]);
        static_cast<ActorLook&>(actor_shadow[who]) = actors[who];
        actor_shadow[who].Type = actors[who].Type;
    }
    return max_actors;
}

} // namespace kelu
