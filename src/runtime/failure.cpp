// SPDX-License-Identifier: MIT
// The one place that ends the process early.
#include "runtime/failure.h"

#include "base/log.h"
#include "base/run_state.h"
#include "platform/host.h"
#include <cstdlib>

namespace kelu {

void fatal_stop(const char* text, int exit_code)
{
    run_state.timers_locked = 1;
    platform::host->show_message(text);
    log_close();
    platform::host->stop();
    std::exit(exit_code);
}

} // namespace kelu
