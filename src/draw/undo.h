// Undo, redo and restore: whole copies of the frame, and the stroke source that the inks read.
//
// All of it belongs to the current frame; a swap to another frame drops the queues. The order of the slots means
// nothing: a queue is searched by age. Main thread only.
#pragma once

#include "base/bitmap.h"
#include <array>

namespace kelu {

constexpr int max_undo_depth = 12;  ///< slots of each queue; preferences.undo_depth of them are in use
constexpr int undo_slot_free = -1;  ///< age of a slot that holds nothing
constexpr int undo_slot_newest = 0; ///< age of the newest copy; older ones count up

using UndoAges = std::array<int, max_undo_depth>;
constexpr UndoAges all_undo_slots_free = [] {
    UndoAges ages{};
    ages.fill(undo_slot_free);
    return ages;
}();

/// The two queues. Owner: draw/undo. A bitmap is made when its slot is first written, and it has the size that the
/// frame had then.
struct Undo {
    std::array<Bitmap, max_undo_depth> undo_bitmaps, redo_bitmaps;
    UndoAges undo_age = all_undo_slots_free;
    UndoAges redo_age = all_undo_slots_free;
    int undo_head = 0; ///< slot written last; stays when an undo frees that slot
    int redo_head = 0; ///< the same of the redo queue
};
inline Undo undo;

/// Copies the frame into the undo queue; the oldest copy falls out when the queue is full. Without `keep_redo` all
/// redo slots become free. Logs and copies nothing when the depth is below 1 or memory is short.
void push_undo(bool keep_redo);
/// Copies the frame into the redo queue, with the same failures.
void push_redo();
/// Takes back the newest operation. The picture that it replaces goes to the redo queue. Nothing when there is none.
void undo_step();
/// Takes back the newest undo, as long as no new operation came after it.
void redo_step();
/// Frees every slot and its memory: the frame has been replaced, or its size or the depth has changed.
void reset_undo_slots();

/// The frame as it was before the present operation: the newest undo slot. The frame itself while there is none.
/// After a failed push this is an older copy, and its size may differ from the frame's.
BITMAP* stroke_source();

} // namespace kelu
