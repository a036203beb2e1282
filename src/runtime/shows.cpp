// SPDX-License-Identifier: MIT
// The decision, and what the last picture showed.
#include "runtime/shows.h"

#include "platform/host.h"
#include "runtime/frame_snapshot.h"
#include "runtime/preferences.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int lively_ms = 300;     ///< in which all that follows from an input has begun
constexpr int longest_still = 100; ///< frames; then one is composed without a reason, should anybody have kept silent
constexpr int by_display_ms = 14;  ///< about the time of a picture where the display sets the pace
constexpr int low_saving_ms = 2;
constexpr int high_saving_ms = 10;

/// Owner: this file. Main thread.
struct LastPicture {
    FrameSnapshot shot; ///< what it showed
    int still = 0;      ///< frames since
};
LastPicture last;

/// The snapshot with the values left out that the last picture doesn't show.
FrameSnapshot visible(FrameSnapshot shot)
{
    if (!shows.dashes) shot.dash_phase = 0;
    if (!shows.pulse) shot.pulse = 0;
    return shot;
}

} // namespace

void stay_lively()
{
    const bool was_still = shows.lively == 0;
    shows.lively = lively_ms / std::max(limiter_rest(), 1);
    if (was_still) platform::host->wake_timers();
}

bool picture_is_due(bool forced)
{
    if (shows.changed.take() != 0) stay_lively();
    const bool lively = shows.lively > 0;
    if (lively) shows.lively = shows.lively - 1;
    const bool due = forced || lively || ++last.still > longest_still || visible(frame_snapshot) != visible(last.shot);
    if (!due) return false;
    last = {frame_snapshot, 0};
    shows.dashes = 0;
    shows.pulse = 0;
    if (forced) shows.changed = 1; // the next one differs
    return true;
}

int limiter_rest()
{
    if (preferences.power_save == 0) return 0;
    return preferences.frame_limiter == 0   ? by_display_ms
           : preferences.frame_limiter == 1 ? low_saving_ms
                                            : high_saving_ms;
}

} // namespace kelu
