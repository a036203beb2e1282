// SPDX-License-Identifier: MIT
// Grabbing, spawning and destroying of actors.
#include "runtime/actors.h"

#include "base/log.h"
#include "runtime/bubble_table.h"

namespace kelu {
namespace {

constexpr int first_grabbed = 1;
constexpr int last_actor = max_actors - 1;

constinit const Actor blank_actor;
constinit const Bubble blank_bubble;

/// The line for a number that must not be destroyed, or null for one that may be.
const char* refusal(int who)
{
    if (who < 0) return "[ ERROR ] : A process tried to destroy an object less than 0!";
    if (who > last_actor) return "[ ERROR ] : A process tried to destroy an object greater than maximum!";
    if (who == 0) return "[ ERROR ] : A process tried to destroy object (0) -- this object is protected!";
    if (who == last_actor) return "[ ERROR ] : A process tried to destroy object (MAX-1) -- this object is protected!";
    return nullptr;
}

void release_bubbles_of(int who)
{
    for (int bubble = 1; bubble < max_bubbles; ++bubble) {
        if (bubble_at(bubble).bubble_actor == who) release_bubble(bubble);
    }
}

} // namespace

bool check_actor(int who)
{
    const char* trap = nullptr;
    if (who == 0) trap = "[ TRAP ] : A process tried to kill object (0)";
    if (who == last_actor) trap = "[ TRAP ] : A process tried to kill object (MAX-1)";
    if (who < 0) trap = "[ TRAP ] : A process tried to kill an object < 0!";
    if (who > last_actor) trap = "[ TRAP ] : A process tried to kill an object > MAX!";
    if (trap) log_line(trap);
    return trap == nullptr;
}

int FW_grab_actor()
{
    for (int who = first_grabbed; who < last_actor; ++who) {
        if (actor_at(who).Type == ACTOR_FREE) return who;
    }
    log_line("[ ERROR ] : Attempted to grab object, but none available!");
    return -1;
}

void FW_destroy_actor(int who, const char* caller)
{
    const char* refused = actor_layer.actors_unguarded && actor_exists(who) ? nullptr : refusal(who);
    if (refused) {
        log_line(refused);
        log_line("[ REFER ] : %s", caller);
        return;
    }
    Actor& actor = actor_at(who);
    const int buddy = actor.Suicide_buddy;
    const int followed = actor.actor_follow;
    release_bubbles_of(who);
    // The slots are freed first, so that the behaviour pass never runs one on parameters that are half blank.
    for (Published16& behavior : actor.BEHAVIOR)
        behavior = 0;
    actor = blank_actor;
    if (actor_layer.actors_unguarded) return;
    actor.Suicide_buddy = buddy;
    actor.actor_follow = followed;
}

int FW_spawn_blank_element(int frame_x, int frame_y)
{
    const int who = FW_grab_actor();
    if (who < 0) {
        log_line("ERROR: No free actors while spawning generic element! slot = %d", who);
        return -1;
    }
    FW_destroy_actor(who, "FW_spawn_blank_element");
    Actor& actor = actor_at(who);
    actor.Frame_x = frame_x;
    actor.Frame_y = frame_y;
    actor.Mask = 0;
    actor.Mode = MODE_SHOWN;
    actor.Psuedo = 1;
    actor.Profession = PROFESSION_ELEMENT;
    actor.Type = ACTOR_ELEMENT;
    return who;
}

int FW_destroy_actor_type(int type, int profession)
{
    int destroyed = 0;
    for (int who = first_grabbed; who < max_actors; ++who) {
        const Actor& actor = actor_at(who);
        if (actor.Type == ACTOR_FREE) continue;
        if (type != -1 && actor.Type != type) continue;
        if (profession != PROFESSION_ANY && actor.Profession != profession) continue;
        FW_destroy_actor(who, "FW_destroy_actor_type");
        ++destroyed;
    }
    return destroyed;
}

void reset_actors()
{
    actor_layer.actors_unguarded = true;
    for (int who = 0; who < max_actors; ++who)
        FW_destroy_actor(who, "reset_actors");
    actor_layer.actors_unguarded = false;
}

int count_actors()
{
    int taken = 0;
    for (const Actor& actor : actors)
        taken += actor.Type != ACTOR_FREE ? 1 : 0;
    return taken;
}

int get_free_behavior(int who)
{
    if (!actor_exists(who)) {
        log_line("[ ERROR ] : WHO parameter OOB in call to get_free_behavior()! who = %d", who);
        return 0;
    }
    for (int slot = 0; slot < max_behaviors - 1; ++slot) {
        if (actor_at(who).BEHAVIOR[slot] == 0) return slot;
    }
    return max_behaviors - 1;
}

int check_behavior(int who, int behavior)
{
    if (!actor_exists(who)) {
        log_line("[ ERROR ] : WHO parameter OOB in call to check_behavior()! who = %d", who);
        return 0;
    }
    for (int slot = max_behaviors - 1; slot >= 0; --slot) {
        if (actor_at(who).BEHAVIOR[slot] == behavior) return slot;
    }
    return -1;
}

void release_bubble(int row)
{
    if (row > 0 && row < max_bubbles) bubble_at(row) = blank_bubble;
}

} // namespace kelu
