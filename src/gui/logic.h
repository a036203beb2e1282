// SPDX-License-Identifier: MIT
// The logic pass over the slots, 60 or 120 times a second on the timer thread.
//
// It finds the slot under the pointer, times tooltips, follows presses to their release, moves scroll bars and edits
// the focused field. It draws nothing; what a click means is up to the loop that reads the slot's event word.
#pragma once

namespace kelu {

/// What the pass calls of higher levels, null where there is nothing. Set by start-up, before the timers run.
struct LogicHooks {
    void (*hotkeys)() = nullptr;                 ///< the actions that run on the timer: pans
    void (*follow_view)() = nullptr;             ///< limits of the pan, frame pixel under the pointer
    void (*wheel_zoom)(int direction) = nullptr; ///< the wheel over the bare frame: 1 in, 0 out
    void (*colour_tab)(int tab) = nullptr;       ///< tab of the colour menu: 0 VGA, 1 RGB, 2 HLS, 3 HSV
};
inline LogicHooks logic_hooks;

/// The row of a list under the pointer, counted from the first one in view; -1: none. For loops that read a press: it
/// is never older than the press, while `hover_row` is the logic pass's and on its way between two values. Any thread.
int list_row_under_pointer(int slot);
/// The timer callback. Does nothing while `gui_logic_paused` is set, nor, when presents wait for the display, before
/// the next present.
void gui_logic_tick();
/// Whether somebody would notice a pass now, and what n of them do where nobody does.
bool logic_waited_for();
void pass_logic(int n);
/// Gives the tick the period that the frame limiter asks for. To be called again when the option has changed.
void install_logic_timer();

} // namespace kelu
