// The sleep between two frames, which input cuts short. Main thread.
#pragma once

namespace kelu::platform {

/// Sleeps for `milliseconds` at the usual rate, three times as long while the picture stands still, and delivers the
/// input that comes meanwhile. A button or key that goes down or up, and any motion after a stillness, ends the sleep
/// at once and makes the next ten sleeps short: the timers' callbacks then take the input over within a few
/// milliseconds, and the frames that show it don't wait.
void rest_until_input(int milliseconds);

} // namespace kelu::platform
