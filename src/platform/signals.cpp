// Ending on a signal. Allegro's threads block all signals, so that they reach the main thread only.
#include "platform/signals.h"

#include "runtime/run_state.h"
#include <csignal>

namespace kelu::platform {
namespace {

constexpr int ending_signals[] = {SIGTERM, SIGINT, SIGHUP};

// A lock-free word is the one thing that a signal handler may write.
static_assert(std::atomic<uint8_t>::is_always_lock_free);
void request_exit(int) { run_state.exit_requested = 1; }

void set_handlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : ending_signals)
        sigaction(number, &action, nullptr);
}

} // namespace

void end_on_signals() { set_handlers(request_exit); }

void release_signals() { set_handlers(SIG_DFL); }

} // namespace kelu::platform
