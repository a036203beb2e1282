// SPDX-License-Identifier: MIT
// Snapping to the grid's lines.
#include "draw/grid.h"

#include "base/log.h"
#include <cstdlib>

namespace kelu {
namespace {

constexpr int pitch_min = 2;
constexpr int pitch_max = 999;

int snap(int position, int pitch, int offset)
{
    const int quotient = position / pitch;
    const int low = quotient * pitch + offset;
    const int high = low + pitch;
    return std::abs(position - high) <= std::abs(position - low) ? high : low;
}

bool repair_axis(Shared<int>& pitch, Shared<int>& offset)
{
    bool changed = false;
    if (pitch < pitch_min || pitch > pitch_max) {
        pitch = pitch_min;
        changed = true;
    }
    if (offset < 0 || offset >= pitch) {
        offset = 0;
        changed = true;
    }
    return changed;
}

} // namespace

int snap_to_grid(int x, int y, int axis)
{
    if (grid.grid_on == 0) return axis == 0 ? x : y;
    return axis == 0 ? snap(x, grid.grid_w, grid.grid_off_x) : snap(y, grid.grid_h, grid.grid_off_y);
}

void repair_grid()
{
    const bool changed_x = repair_axis(grid.grid_w, grid.grid_off_x);
    const bool changed_y = repair_axis(grid.grid_h, grid.grid_off_y);
    if (changed_x || changed_y) log_line("[ WARNING ] : Grid settings were wonky. Calling Scotty for repairs.");
}

} // namespace kelu
