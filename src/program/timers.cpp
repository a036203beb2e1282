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
constexpr TimerRow timers[] = {
    {bubble_tick, 26515},
    {script_tick, 11931},
    {world_tick, 26515},
    {behavior_tick, 8522},
    {gui_logic_tick, logic_period_slow},
    {caret_tick, 119318},
    {sample_tick, 238636},
    {mouse_tick, 9943},
    {clock_tick, 2386},
};

} // namespace

void install_interrupts()
{
    for (const TimerRow& timer : timers)
        platform::host->install_timer(timer.tick, timer.period);
    install_logic_timer();
}

void remove_interrupts()
{
    for (const TimerRow& timer : timers)
        platform::host->remove_timer(timer.tick);
}

} // namespace kelu
