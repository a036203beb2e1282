// SPDX-License-Identifier: MIT
// A pass of a modal loop, said once as a value: the frame, the keys that answer, quick pan, what a right click does,
// and the way out. Every loop of the program that waits for the user is written over `run_pass`.
//
// The rule of leaving. A first request to end the program (the close button, the key of rapid exit) is remembered: all
// screens and tools run on until the user leaves them, and the home loop then returns. A second request, a signal or a
// lost display ends every loop at its next pass; what the loop was gathering is given up as by its CANCEL.
#pragma once

#include "loop/actions.h"
#include <cstdint>

namespace kelu {

/// What a right click does that begins on no slot.
enum class RightClick : uint8_t {
    IS_THE_LOOPS, ///< nothing: the loop reads it itself, or has no use for it
    HIDES,        ///< hides the open window or brings it back
    LEAVES        ///< ends the loop
};

struct Pass {
    uint8_t hotkeys = 0;    ///< contexts whose actions answer: bits of ActionContext
    bool quick_pan = false; ///< the key of quick pan answers, whatever the contexts
    RightClick right_click = RightClick::IS_THE_LOOPS;
    int leave_key = no_action; ///< an action whose key ends the loop, once it is up again
    bool is_home = false;      ///< the loop that the first request to end the program ends
    bool reads_keys = false;   ///< the loop reads every key itself, Escape too

    static constexpr int no_action = -1;
};

/// The passes that many loops have in common.
namespace passes {
inline constexpr Pass plain{};                      ///< nothing but the frame: waits, drags, questions
inline constexpr Pass menu{.hotkeys = IN_ANY_MENU}; ///< a tool or a screen beside which keys go on acting
inline constexpr Pass cel{.hotkeys = IN_ANY_MENU, .quick_pan = true};
inline constexpr Pass node{.hotkeys = WHILE_MOVING}; ///< a node follows the pointer
} // namespace passes

/// Runs one pass. Where no action answers Escape it clicks the open window's CANCEL, EXIT, BACK, RETURN or only OKAY,
/// or ends a loop that a right click ends. False when the loop is to end: the user has left it as the rules say, or the
/// program ends. A loop that returns for another reason, such as OKAY, decides so after a pass that was true. Main
/// thread.
bool run_pass(const Pass& pass);

/// True when every loop is to return now, as by its CANCEL.
bool ending();

/// Polls the buttons; true while the raw left or right one is down.
bool left_down();
bool right_down();
/// Runs passes until the button is up.
void wait_left_release();
void wait_right_release();

} // namespace kelu
