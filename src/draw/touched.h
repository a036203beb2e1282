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
    TileGrid grid;                  ///< of the frame as it was when `marks` were made
    std::vector<uint8_t> marks;     ///< by tile: 1 when it stands in `tiles`
    std::vector<std::size_t> tiles; ///< the touched tiles, each once

    /// Forgets all, for a frame of this size.
    void restart(TileGrid frame);
    /// Marks every tile of a frame of this size.
    void mark_all(TileGrid frame);
    void mark(std::size_t tile)
    {
        if (marks[tile] != 0) return;
        marks[tile] = 1;
        tiles.push_back(tile);
    }
};
inline Touched touched;

/// The pixels from (left, top) to (right, bottom), both included, may have changed; clipped to the frame.
void touch_area(int left, int top, int right, int bottom);
/// Any pixel may have changed, or the frame is another bitmap.
void touch_frame();

} // namespace kelu
