// SPDX-License-Identifier: MIT
// Frame limiter and presentation.
#include "runtime/present.h"

#include "base/run_state.h"
#include "platform/host.h"
#include "runtime/animation.h"
#include "runtime/clock.h"
#include "runtime/frame_flags.h"
#include "runtime/preferences.h"
#include "runtime/shows.h"

namespace kelu {
namespace {

constexpr int still_ms = 30;   ///< a timer is waited for: what it changes shows within this time
constexpr int asleep_ms = 100; ///< nothing moves but by input, which ends the sleep

/// With a display that paces the presents, and once after a pan, the picture goes out with the display's own next one.
void wait_for_blank()
{
    const platform::Host& machine = *platform::host;
    if (preferences.frame_limiter != 0) machine.rest(1);
    machine.wait_vertical_blank();
    frame_flags.vsync_once = 0;
}

/// True while a frame follows the other only to see whether something has happened.
bool stands_still() { return shows.lively == 0 && shows.dashes == 0 && shows.pulse == 0; }

int length_of_rest()
{
    if (!stands_still()) return limiter_rest();
    return platform::host->timers_sleep() ? asleep_ms : still_ms;
}

} // namespace

void present_back_buffer(bool fresh)
{
    const bool paced = preferences.power_save != 0 && frame_flags.in_passing == 0;
    // A running animation has a pace of its own: each step ends the rest.
    const bool by_display =
        (preferences.frame_limiter == 0 && animation.anim_state <= 0 && !stands_still()) || frame_flags.vsync_once != 0;
    if (paced) clock_state.present_ready = 1;
    if (paced && by_display) wait_for_blank();
    platform::host->present(screen_state.back_buffer, fresh);
    // The sleep comes after the picture is on the screen, not before: an input shows ten milliseconds earlier.
    if (paced && !by_display) platform::host->rest(length_of_rest());
    if (!paced) platform::host->rest(0); // the input all the same, and what ends the program from outside
}

} // namespace kelu
