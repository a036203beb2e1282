// SPDX-License-Identifier: MIT
// Polling of pointer and buttons.
#include "runtime/input.h"

#include "base/run_state.h"
#include "platform/input_events.h"
#include "runtime/animation.h"
#include "runtime/preferences.h"
#include "runtime/shows.h"
#include "runtime/view.h"
#include <algorithm>
#include <allegro.h>
#include <cstdlib>

namespace kelu {
namespace {

/// How long the pointer has stood still, in passes of the mouse tick; timer thread only.
struct Stillness {
    int x = 0, y = 0, passes = 0;
};
Stillness stillness;

/// To be called after a look at the buttons: the position is then never older than the press, as a finger or a pen
/// brings both at once.
void read_position()
{
    if (platform::input_events_queued()) return;
    pointer.mouse_x = static_cast<int16_t>(::mouse_x / screen_state.screen_scale);
    pointer.mouse_y = static_cast<int16_t>(::mouse_y / screen_state.screen_scale);
}

bool button_down(int state, int bit) { return (state >> bit & 1) != 0; }

} // namespace

namespace {

void set_buttons(int state)
{
    pointer.mouse_left = button_down(state, 0);
    pointer.mouse_right = button_down(state, 1);
    pointer.mouse_middle = button_down(state, 2);
    pointer.mouse_button_4 = button_down(state, 3);
    pointer.mouse_button_5 = button_down(state, 4);
}

} // namespace

void set_pointer(int x, int y, int buttons)
{
    pointer.mouse_x = static_cast<int16_t>(x);
    pointer.mouse_y = static_cast<int16_t>(y);
    set_buttons(buttons);
}

void poll_mouse_buttons()
{
    if (platform::input_events_queued()) return;
    set_buttons(::mouse_b);
    read_position();
}

int gui_button_state()
{
    poll_mouse_buttons();
    pointer.button_looks = pointer.button_looks + 1;
    const bool left = pointer.mouse_left != 0;
    const bool right = pointer.mouse_right != 0;
    if (right || (left && pointer.mouse_held == 0)) {
        pointer.mouse_press_x = int16_t(pointer.mouse_x);
        pointer.mouse_press_y = int16_t(pointer.mouse_y);
    }
    pointer.mouse_held = 0;
    const bool swapped = preferences.mouse_swap != 0;
    const int state = (swapped ? right : left) ? 1 : (swapped ? left : right) ? 2 : 0;
    if (state == 0) {
        pointer.gui_hold_slot = -1;
        return 0;
    }
    pointer.mouse_held = 1;
    if (pointer.gui_hold_slot == -1) pointer.gui_hold_slot = int16_t(pointer.gui_hover_slot);
    return state;
}

void sample_press()
{
    poll_mouse_buttons();
    update_mouse_position();
    const int x = view.frame_mouse_x;
    const int y = view.frame_mouse_y;
    // The stable position is kept in pixels of the frame: jitter of the screen matters only where it changes the
    // frame's pixel.
    const int shift = view.zoom - 1;
    const int still_x = (pointer.stable_mouse_x >> shift) + view.pan_x;
    const int still_y = (pointer.stable_mouse_y >> shift) + view.pan_y;
    const bool still = preferences.anti_jitter != 0 && std::abs(still_x - x) <= 2 && std::abs(still_y - y) <= 2;
    pointer.press_x = still ? still_x : x;
    pointer.press_y = still ? still_y : y;
}

int wheel_position() { return ::mouse_z; }

void mouse_tick()
{
    read_position();
    const int x = pointer.mouse_x;
    const int y = pointer.mouse_y;
    if (x != stillness.x || y != stillness.y) {
        stillness = {x, y, 0};
    } else if (++stillness.passes > 3) {
        stillness.passes = 3;
        pointer.stable_mouse_x = x;
        pointer.stable_mouse_y = y;
    }
    animation_tick();
}

bool mouse_waited_for() { return shows.lively > 0 || animation.anim_state > 0; }

void pass_mouse(int n)
{
    constexpr int until_still = 4;
    for (int left = std::min(n, until_still); left > 0; --left)
        mouse_tick();
}

} // namespace kelu
