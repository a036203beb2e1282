// SPDX-License-Identifier: MIT
// Actors on start values, behaviours in their slots, and ticks counted by hand.
#pragma once

#include "framework/behaviors.h"
#include "support/fresh_state.h"
#include "support/log_lines.h"
#include <vector>

namespace kelu {

class BehaviorTest : public test::FreshState {
protected:
    /// Puts a behaviour into a slot of actor 1, which is taken.
    void start(int id, const std::vector<int>& params, int slot = 0)
    {
        actor.Type = ACTOR_ELEMENT;
        const auto s = static_cast<std::size_t>(slot);
        std::size_t i = 0;
        for (const int value : params)
            actor.behavior_params[s][i++] = value;
        actor.BEHAVIOR[s] = id;
    }
    bool runs(int slot = 0) const { return actor.BEHAVIOR[static_cast<std::size_t>(slot)] != 0; }
    int x() const { return actor.actor_pos[0]; }
    int y() const { return actor.actor_pos[1]; }
    int z() const { return actor.actor_pos[2]; }
    static void tick(int n = 1)
    {
        for (int i = 0; i < n; ++i)
            behavior_tick();
    }
    /// Ticks until slot 0 is free, and no more than `most`.
    int ticks_to_end(int most = 5000)
    {
        int n = 0;
        for (; n < most && runs(); ++n)
            behavior_tick();
        return n;
    }

    Actor& actor = actor_at(1);
    LogLines log;
};

} // namespace kelu
