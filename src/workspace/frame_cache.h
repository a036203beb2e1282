// SPDX-License-Identifier: MIT
// The frames of the animation as bitmaps in memory, so that playback never waits for the disk.
//
// A bitmap belongs to one of 100 cache slots; a frame refers to a slot. The cache outlives the playback screen and is
// emptied when the workspace is cleared or replaced. Main thread.
#pragma once

#include "base/bitmap.h"
#include "runtime/view.h"
#include <array>

namespace kelu {

constexpr int not_cached = -1; ///< reference of a frame that is in no slot

/// Owner: workspace/frame_cache. Playback reads it.
struct FrameCache {
    std::array<Bitmap, max_frames> frame_cache;        ///< by slot; empty: free
    std::array<int, max_frames> frame_cache_ref = [] { ///< by frame: its slot, or `not_cached`
        std::array<int, max_frames> references{};
        references.fill(not_cached);
        return references;
    }();
};
inline FrameCache frame_cache;

/// Fills `anim_list` with the tagged frames in their order, -1 behind the last, and returns their count.
int build_anim_list();

/// The cached picture of a frame, null when there is none.
BITMAP* cached_frame(int frame);
/// Loads every tagged frame that isn't cached. Frames that can't be read stay out.
void fill_frame_cache();
/// Brings the current frame's picture in the cache up to date, or drops it when the frame isn't in the list.
void refresh_frame_cache();
/// A free slot, after maintenance if need be; -1 and a line in the log when there is none.
int find_cache_slot();
/// Frees the slots of frames that are no longer tagged, and those that no frame refers to.
void cache_maintenance();
/// Destroys all bitmaps of the cache.
void clear_frame_cache();
/// Destroys the cached picture of one frame, if there is one.
void drop_cached_frame(int frame);
/// Moves a cached frame's reference, tag and delay to another frame number. A frame that isn't cached leaves all three
/// where they are.
void shift_cache_entry(int from, int to);

} // namespace kelu
