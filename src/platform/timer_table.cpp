// SPDX-License-Identifier: MIT
// Deadlines, and the two ways past them.
#include "platform/timer_table.h"

#include <algorithm>
#include <limits>

namespace kelu::platform {
namespace {

/// A machine that stood still this long, asleep or stopped, has nobody who wants the ticks one by one.
constexpr TimerUnits longest_catch_up = timer_units_per_second;

} // namespace

bool TimerTable::install(const Timer& timer, TimerUnits now)
{
    auto place = std::ranges::find(rows_, timer.tick, [](const Row& row) { return row.timer.tick; });
    if (place == rows_.end()) {
        place = std::ranges::find(rows_, nullptr, [](const Row& row) { return row.timer.tick; });
        if (place == rows_.end()) return false;
        place->due = now + timer.period;
    } else {
        place->due += timer.period - place->timer.period;
    }
    place->timer = timer;
    place->idle = false;
    return true;
}

void TimerTable::remove(void (*tick)())
{
    for (Row& row : rows_) {
        if (row.timer.tick == tick) row = {};
    }
}

// And what is too long ago.
void TimerTable::pass_idle(TimerUnits now)
{
    for (Row& row : rows_) {
        if (!row.timer.tick || row.due > now) continue;
        const TimerUnits kept = row.idle ? 0 : longest_catch_up;
        const TimerUnits ticks = (now - kept - row.due) / row.timer.period + (now - kept >= row.due ? 1 : 0);
        if (ticks <= 0) continue;
        row.due += ticks * row.timer.period;
        constexpr TimerUnits most = std::numeric_limits<int>::max();
        if (row.timer.pass) row.timer.pass(static_cast<int>(std::min(ticks, most)));
    }
}

TimerTable::Row* TimerTable::first_due(TimerUnits now)
{
    Row* first = nullptr;
    for (Row& row : rows_) {
        if (row.timer.tick && row.due <= now && (!first || row.due < first->due)) first = &row;
    }
    return first;
}

TimerUnits TimerTable::look_ahead()
{
    TimerUnits next = never;
    for (Row& row : rows_) {
        if (!row.timer.tick) continue;
        row.idle = row.timer.waited_for && !row.timer.waited_for();
        if (!row.idle && (next == never || row.due < next)) next = row.due;
    }
    return next;
}

TimerUnits TimerTable::run(TimerUnits now)
{
    pass_idle(now);
    while (Row* row = first_due(now)) {
        row->due += row->timer.period;
        row->timer.tick();
    }
    return look_ahead();
}

} // namespace kelu::platform
