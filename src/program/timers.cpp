// SPDX-License-Identifier: MIT
// The table of the nine timers.
#include "program/startup.h"
#include "runtime/clock.h"
#include "runtime/input.h"

#include "framework/behaviors.h"
#include "framework/bubbles.h"
#include "framework/script.h"
#include "gui/logic.h"
#include "platform/host.h"

namespace kelu {
namespace {

/// In the order of installation, which is the order of running among those that are due together.
constexpr platform::Timer timers[] = {
    {bubble_tick, 26515, bubbles_speak, nullptr},
    {script_tick, 11931, scripts_run, nullptr},
    {world_tick, 26515, world_waited_for, pass_world},
    {behavior_tick, 8522, actors_live, nullptr},
    {gui_logic_tick, logic_period_slow, logic_waited_for, pass_logic},
    {caret_tick, 119318, counted_only, pass_caret},
    {sample_tick, 238636, counted_only, pass_samples},
    {mouse_tick, 9943, mouse_waited_for, pass_mouse},
    {clock_tick, 2386, clock_waited_for, pass_clock},
};

} // namespace

void install_interrupts()
{
    for (const platform::Timer& timer : timers)
        platform::host->install_timer(timer);
    install_logic_timer();
}

void remove_interrupts()
{
    for (const platform::Timer& timer : timers)
        platform::host->remove_timer(timer.tick);
}

} // namespace kelu
