// SPDX-License-Identifier: MIT
// Undo, redo and restore: what each operation has changed, and the stroke source that the inks read.
//
// A slot stands for a whole picture: the frame as it was before an operation. It keeps the tiles in which that picture
// differs from the next younger one, which is that of the next slot or the frame itself. So a step exchanges these
// tiles with the frame's, and the slot changes sides. The stroke source is the frame as it was before the present
// operation; when the operation ends its touched tiles go from the source to the slot, and from the frame to the
// source. A writer outside of any operation changes the frame under the newest slots: these then take what they miss.
//
// All of it belongs to the current frame; a swap to another frame drops the queues. The order of the slots means
// nothing: a queue is searched by age. Main thread only.
#pragma once

#include "base/bitmap.h"
#include "base/function_ref.h"
#include "draw/tiles.h"
#include <array>

namespace kelu {

constexpr int max_undo_depth = 12;  ///< slots of each queue; preferences.undo_depth of them are in use
constexpr int undo_slot_free = -1;  ///< age of a slot that holds nothing
constexpr int undo_slot_newest = 0; ///< age of the newest picture; older ones count up

using UndoAges = std::array<int, max_undo_depth>;
constexpr UndoAges all_undo_slots_free = [] {
    UndoAges ages{};
    ages.fill(undo_slot_free);
    return ages;
}();

/// The two queues and the stroke source. Owner: draw/undo. A slot whose grid isn't the frame's holds every tile.
struct Undo {
    std::array<TileSet, max_undo_depth> undo_slots, redo_slots;
    UndoAges undo_age = all_undo_slots_free;
    UndoAges redo_age = all_undo_slots_free;
    int undo_head = 0;    ///< slot written last; stays when an undo frees that slot
    int redo_head = 0;    ///< the same of the redo queue
    TileSet outworn;      ///< of the slot last used anew, until the operation's end
    int operations = 0;   ///< operations that are under way
    Bitmap source_bitmap; ///< the frame as last settled; empty before the first operation, and when memory is short
};
inline Undo undo;

/// Begins an operation: the newest undo slot stands for the frame as it is. The oldest falls out when the queue is
/// full. Without `keep_redo` all redo slots become free. Logs and does nothing when the depth is below 1 or memory is
/// short.
void push_undo(bool keep_redo);
/// Ends what was begun: the touched tiles become part of the newest slots, the stroke source equals the frame, and the
/// coverage is 0 there. Without a touched tile it does nothing.
void settle_frame();
/// As `settle_frame`, for a frame that has changed places with the alpha picture: the journal knows both.
void settle_exchanged_frame();
/// An operation that can't come to its end is given up half-way: the frame is as it was before it. Nothing when none is
/// under way, or when it has changed the frame's size.
void take_back_operation();
/// Takes back the newest operation. The picture that it replaces goes to the redo queue. Nothing when there is none.
void undo_step();
/// Takes back the newest undo, as long as no new operation came after it.
void redo_step();
/// Frees every slot, and makes the stroke source anew: the frame has been replaced, or its size or the depth has
/// changed.
void reset_undo_slots();
/// The same for a frame whose rows aren't there yet: `make_row` makes each of them once, and it is copied while the
/// processor still has it at hand.
void reset_undo_slots(FunctionRef<void(int y)> make_row);

/// The frame as it was before the present operation. The frame itself where that isn't to be had.
BITMAP* stroke_source();

/// One operation that can be undone, from its begin to its end.
class UndoableOperation {
public:
    UndoableOperation()
    {
        push_undo(false);
        ++undo.operations;
    }
    ~UndoableOperation()
    {
        --undo.operations;
        settle_frame();
    }
    UndoableOperation(const UndoableOperation&) = delete;
    UndoableOperation& operator=(const UndoableOperation&) = delete;
};

} // namespace kelu
