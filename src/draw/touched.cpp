// SPDX-License-Identifier: MIT
// Marks of touched tiles.
#include "draw/touched.h"

#include "runtime/store.h"

namespace kelu {

void Touched::restart(TileGrid frame)
{
    for (const std::size_t tile : tiles)
        marks[tile] = 0;
    tiles.clear();
    fresh.clear();
    if (grid == frame) return;
    this->grid = frame; // ours, not the grid that tools snap to
    marks.assign(grid.count(), 0);
}

void Touched::mark_all(TileGrid frame)
{
    restart(frame);
    for (std::size_t tile = 0; tile < marks.size(); ++tile)
        mark(tile);
}

void touch_area(int left, int top, int right, int bottom)
{
    const TileGrid frame = TileGrid::of(store.frame_bitmap);
    if (touched.grid != frame) {
        touch_frame();
        return;
    }
    left = std::max(left, 0);
    top = std::max(top, 0);
    right = std::min(right, frame.w - 1);
    bottom = std::min(bottom, frame.h - 1);
    if (left > right || top > bottom) return;
    const auto across = static_cast<std::size_t>(frame.columns());
    const std::size_t columns = frame.at(right, top) - frame.at(left, top);
    for (std::size_t first = frame.at(left, top); first <= frame.at(left, bottom); first += across)
        for (std::size_t tile = first; tile <= first + columns; ++tile)
            touched.mark(tile);
}

void touch_frame() { touched.mark_all(TileGrid::of(store.frame_bitmap)); }

} // namespace kelu
