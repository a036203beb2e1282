// SPDX-License-Identifier: MIT
// The report of every writer of frame pixels: which tiles it has touched.
//
// Whoever writes to `store.frame_bitmap` says so here, in the same call: the inks' calls do it for all tools, cels and
// texts; a command that writes by itself says it by `touch_area` or `touch_frame`. What is not reported is missing in
// undo, in the stroke source and in the journal. Pictures lent to the frame's place are no writing. Main thread.
#pragma once

#include "draw/tiles.h"
#include <cstdint>

namespace kelu {

/// What has been touched since the frame was last settled. Owner: draw/touched; draw/undo empties it.
struct Touched {
    enum Mark : uint8_t {
        TOUCHED = 1, ///< is in `tiles`
        FRESH = 2,   ///< is in `fresh`
        SEEN = 4     ///< the journal has a state of it that this operation has left behind
    };
    TileGrid grid;                  ///< of the frame as it was when `marks` were made
    std::vector<uint8_t> marks;     ///< by tile: the bits below
    std::vector<std::size_t> tiles; ///< the touched tiles, each once
    std::vector<std::size_t> fresh; ///< those of them that the journal hasn't seen in this operation

    /// Forgets all, for a frame of this size.
    void restart(TileGrid frame);
    /// Marks every tile of a frame of this size.
    void mark_all(TileGrid frame);
    void mark(std::size_t tile)
    {
        if ((marks[tile] & FRESH) != 0) return;
        if (marks[tile] == 0) tiles.push_back(tile);
        marks[tile] = static_cast<uint8_t>(marks[tile] | TOUCHED | FRESH);
        fresh.push_back(tile);
    }
    /// Takes a fresh tile, which the journal then has as it is now.
    std::size_t take_fresh()
    {
        const std::size_t tile = fresh.back();
        fresh.pop_back();
        marks[tile] = TOUCHED | SEEN;
        return tile;
    }
};
inline Touched touched;

/// The pixels from (left, top) to (right, bottom), both included, may have changed; clipped to the frame.
void touch_area(int left, int top, int right, int bottom);
/// Any pixel may have changed, or the frame is another bitmap.
void touch_frame();

} // namespace kelu
