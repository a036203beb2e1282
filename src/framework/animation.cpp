// SPDX-License-Identifier: MIT
// Writing of animation tables. Main thread.
#include "framework/animation.h"

#include "base/log.h"
#include "framework/behaviors.h"
#include "runtime/random.h"
#include <span>

namespace kelu {
namespace {

std::span<AnimEntry> table_of(int who, int table)
{
    Actor& actor = actor_at(who);
    return table == ANIM_STANDING ? std::span<AnimEntry>(actor.stand_table) : std::span<AnimEntry>(actor.anim_table);
}

} // namespace

void FW_store_anim(int who, int table, int loop, std::initializer_list<AnimCel> cels)
{
    if (!actor_exists(who)) {
        log_line("[ ERROR ] : Invalid actor # passed to FW_store_anim()");
        return;
    }
    const std::span<AnimEntry> entries = table_of(who, table);
    if (cels.size() > entries.size()) {
        log_line("[ WARNING] : Too many animation cels passed to store_anim!");
        return;
    }
    std::size_t index = 0;
    for (const AnimCel& cel : cels) {
        AnimEntry& entry = entries[index++];
        if (cel.cel == -1) continue;
        entry.cel = cel.cel;
        entry.option = cel.option;
        entry.duration = cel.duration;
    }
    if (index < entries.size()) entries[index].cel = loop == 1 ? anim_loop : anim_end;
}

void FW_randomize_anim(int who, int table)
{
    if (!actor_exists(who)) {
        log_line("[ ERROR ] : Invalid actor # passed to FW_randomize_anim()");
        return;
    }
    int count = 0;
    for (const AnimEntry& entry : table_of(who, table)) {
        if (entry.cel >= anim_loop) break;
        ++count;
    }
    const int slot = check_behavior(who, table == ANIM_STANDING ? BEHAVIOR_STANDING_ANIMATION : BEHAVIOR_ANIMATE);
    if (slot >= 0) actor_at(who).behavior_params[slot][2] = rnd(count);
}

} // namespace kelu
