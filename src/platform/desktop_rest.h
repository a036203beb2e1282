// SPDX-License-Identifier: MIT
// The sleep between two frames, which input cuts short. Main thread.
#pragma once

namespace kelu::platform {

/// Sleeps for `milliseconds` and delivers the input that comes meanwhile. A button or key that goes down or up, and any
/// motion after a stillness, ends the sleep at once and makes the next ten sleeps short: the timers' callbacks then
/// take the input over within a few milliseconds, and the frames that show it don't wait.
void rest_until_input(int milliseconds);
/// Ends that sleep at once, or the next one. Any thread.
void rouse_rest();
/// Tells the sleeper that input has been queued, which another thread may have taken from the display. Any thread.
void note_input_queued();
/// What `await_input` polls beside the display.
int rest_descriptor();

} // namespace kelu::platform
