// SPDX-License-Identifier: MIT
// What of the frame the journal has yet to take over.
//
// The journal's thread copies tiles out of the stroke source while the main thread paints on the frame: no stroke waits
// for the disk, and nothing is copied for it. The mutex keeps that thread and every write to the source apart.
#pragma once

#include "draw/tiles.h"
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <vector>

namespace kelu {

/// Written when the frame is settled, and by the journal's thread. Writers: draw, workspace.
struct Unsaved {
    std::mutex mutex;             ///< of all that follows, and of `undo.source_bitmap` for writing
    std::condition_variable news; ///< something waits for the journal, or may now be sealed
    bool collecting = false;      ///< a journal runs
    bool settling = false;        ///< the main thread is half-way through an operation's tiles
    bool whole = false;           ///< not only tiles: the frame has another size, or the alpha picture is another one
    std::vector<uint8_t> marks;   ///< by tile of the source: 1 when it is in `tiles`
    std::vector<std::size_t> tiles;

    /// Notes a tile of the source. The caller holds the mutex.
    void add(std::size_t tile, std::size_t count)
    {
        if (!collecting) return;
        if (marks.size() != count) marks.assign(count, 0);
        if (marks[tile] != 0) return;
        marks[tile] = 1;
        tiles.push_back(tile);
    }
    /// Takes the last tile off the list and returns it. The caller holds the mutex.
    std::size_t take_last()
    {
        const std::size_t tile = tiles.back();
        tiles.pop_back();
        marks[tile] = 0;
        return tile;
    }
    void clear()
    {
        marks.clear();
        tiles.clear();
        whole = false;
    }
};
inline Unsaved unsaved;

} // namespace kelu
