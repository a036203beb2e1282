// Frame limiter and presentation.
#include "runtime/present.h"

#include "base/run_state.h"
#include "platform/host.h"
#include "runtime/clock.h"
#include "runtime/frame_flags.h"
#include "runtime/preferences.h"

namespace kelu {
namespace {

constexpr int low_saving_ms = 2;
constexpr int high_saving_ms = 10;

/// With a display that paces the presents, and once after a pan, the picture goes out with the display's own next one.
void wait_for_blank()
{
    const platform::Host& machine = *platform::host;
    if (preferences.frame_limiter != 0) machine.rest(1);
    machine.wait_vertical_blank();
    frame_flags.vsync_once = 0;
}

} // namespace

void present_back_buffer()
{
    const bool paced = preferences.power_save != 0;
    const bool by_display = preferences.frame_limiter == 0 || frame_flags.vsync_once != 0;
    if (paced) clock_state.present_ready = 1;
    if (paced && by_display) wait_for_blank();
    platform::host->present(screen_state.back_buffer);
    // The sleep comes after the picture is on the screen, not before: an input shows ten milliseconds earlier.
    if (paced && !by_display) platform::host->rest(preferences.frame_limiter == 1 ? low_saving_ms : high_saving_ms);
    if (!paced) platform::host->rest(0); // the input all the same, and what ends the program from outside
}

} // namespace kelu
