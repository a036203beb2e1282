// SPDX-License-Identifier: MIT
// Ending on a signal or without a display. Allegro's threads block all signals, so that they reach the main thread
// only.
#include "platform/ending.h"

#include "base/run_state.h"
#include <chrono>
#include <csignal>
#include <utility>

namespace kelu::platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int ending_signals[] = {SIGTERM, SIGINT, SIGHUP, SIGQUIT};
constexpr std::chrono::milliseconds patience{1500};

/// 1: the display has gone. Written by Allegro's event thread; read by the main thread.
Shared<uint8_t> display_gone = 0;

/// 1: a signal or a lost display has asked. Written by them; read by the main thread.
Shared<uint8_t> asked = 0;

/// When the main thread first saw that the program is to end now; it alone.
Clock::time_point seen;

// A lock-free word is the one thing that a signal handler may write.
static_assert(std::atomic<uint8_t>::is_always_lock_free);
void ask(int)
{
    asked = 1;
    run_state.exit_requested = 1;
    run_state.end_now = 1;
}

void set_handlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : ending_signals)
        sigaction(number, &action, nullptr);
}

} // namespace

void end_on_signals() { set_handlers(ask); }

void release_signals() { set_handlers(SIG_DFL); }

void note_display_lost()
{
    display_gone = 1;
    ask(0);
}

bool display_lost() { return display_gone != 0; }

bool asked_from_outside() { return asked != 0; }

void end_when_overdue()
{
    if (run_state.end_now == 0) seen = {}; // the user has thought better of it
    if (run_state.end_now == 0 || run_state.timers_locked != 0) return;
    const Clock::time_point now = Clock::now();
    if (seen == Clock::time_point{}) seen = now;
    if (now - seen < patience || !end_at_once) return;
    std::exchange(end_at_once, nullptr)(); // once only, though frames may run in it
}

} // namespace kelu::platform
