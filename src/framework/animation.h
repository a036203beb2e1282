// SPDX-License-Identifier: MIT
// The animation tables of an actor: lists of cels that behaviours 4 and 6 play.
#pragma once

#include <initializer_list>

namespace kelu {

constexpr int anim_loop = 99; ///< cel of the entry that sends an animation back to its start
constexpr int anim_end = 999; ///< cel of the entry that ends it

/// Values of `table`.
enum AnimTable : int { ANIM_MOVING = 0, ANIM_STANDING = 1 };

struct AnimCel {
    int cel;      ///< 0 to 98; -1 leaves the entry as it is
    int option;   ///< the cel's option
    int duration; ///< runs of the behaviour
};

/// Writes the cels to an actor's table, and behind them the mark of a loop (`loop` is 1) or of the end, when there is
/// room. More cels than the table holds, or a bad actor: a line in the log, and no change.
void FW_store_anim(int who, int table, int loop, std::initializer_list<AnimCel> cels);

/// Lets the animation that plays start at a random entry. A bad actor: a line in the log.
void FW_randomize_anim(int who, int table);

} // namespace kelu
