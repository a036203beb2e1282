// Frame limiter and presentation.
#include "runtime/present.h"

#include "platform/host.h"
#include "runtime/clock.h"
#include "runtime/frame.h"
#include "runtime/preferences.h"
#include "runtime/run_state.h"

namespace kelu {
namespace {

constexpr int low_saving_ms = 2;
constexpr int high_saving_ms = 10;

void wait_for_turn()
{
    const platform::Host& machine = *platform::host;
    clock_state.present_ready = 1;
    if (preferences.frame_limiter == 0) {
        machine.wait_vertical_blank();
    } else if (frame_flags.vsync_once != 0) {
        machine.rest(1);
        machine.wait_vertical_blank();
        frame_flags.vsync_once = 0;
    } else {
        machine.rest(preferences.frame_limiter == 1 ? low_saving_ms : high_saving_ms);
    }
}

} // namespace

void present_back_buffer()
{
    if (preferences.power_save != 0) wait_for_turn();
    platform::host->present(screen_state.back_buffer);
}

} // namespace kelu
