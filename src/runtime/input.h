// SPDX-License-Identifier: MIT
// Pointer and buttons. Only this unit and the test support touch Allegro's own mouse words.
#pragma once

#include "base/words.h"
#include <cstdint>

namespace kelu {

/// The pointer in logical pixels and the raw buttons. Owner: runtime/input, on both threads.
/// Writers: gui.
struct Pointer {
    Shared<int16_t> mouse_x = 0, mouse_y = 0;                          ///< logical pixels
    Shared<uint8_t> mouse_left = 0, mouse_right = 0, mouse_middle = 0; ///< raw, as the last poll saw them
    Shared<uint8_t> mouse_button_4 = 0, mouse_button_5 = 0;
    Shared<int> stable_mouse_x = 0, stable_mouse_y = 0;   ///< where the pointer last stood still, logical pixels
    Shared<int> last_mouse_z = 0;                         ///< wheel at the last logic pass
    Shared<int16_t> mouse_held = 0;                       ///< not 0: a button is down; a scroll bar puts its slot here
    Shared<int16_t> mouse_press_x = 0, mouse_press_y = 0; ///< where the press was, logical pixels
    int press_x = 0, press_y = 0;                         ///< result of sample_press, frame pixels
    Shared<int16_t> gui_hover_slot = -1;                  ///< highest slot under the pointer, -1 none; gui/logic
    Shared<int> button_looks = 0;                         ///< looks of the logic pass at the buttons so far
    Shared<int> gui_hold_slot = -1;                       ///< slot under the pointer when the present press began
};
inline Pointer pointer;

/// Sets the position, logical pixels, and the buttons, bits as in Allegro's mouse_b: one event of the queue.
void set_pointer(int x, int y, int buttons);
/// Copies the five buttons to the raw bytes, and takes the pointer's position with them. Nothing where events are
/// queued: they set the words.
void poll_mouse_buttons();
/// The GUI's view of the buttons: 0 none, 1 primary, 2 secondary. Notes the position of the press.
int gui_button_state();
/// Sets `press_x`, `press_y` for a press on the frame: the position at which the pointer stood still, when that is
/// within 2 pixels and the option is on, else the present frame position.
void sample_press();
/// Where the wheel is; a rise is a turn away from the user.
int wheel_position();
/// Timer callback: pointer position and its stable position, then the animation's.
void mouse_tick();
/// Whether somebody would notice a tick now, and what n of them do where nobody does.
bool mouse_waited_for();
void pass_mouse(int n);

} // namespace kelu
