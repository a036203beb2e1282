// The two queues of snapshots, written as one: each function works on a view of the undo or of the redo side.
#include "draw/undo.h"

#include "base/log.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include <algorithm>
#include <span>

namespace kelu {
namespace {

/// One side of `undo`, cut to the slots in use.
struct Queue {
    std::span<Bitmap> bitmaps;
    std::span<int> ages;
    int& head;
    const char* no_slot; ///< log line when nothing can be saved
};

std::size_t depth() { return static_cast<std::size_t>(std::clamp<int>(preferences.undo_depth, 0, max_undo_depth)); }

Queue undo_queue()
{
    return {std::span(undo.undo_bitmaps).first(depth()), std::span(undo.undo_age).first(depth()), undo.undo_head,
            "[ ERROR ] : Couldn't locate a free undo slot to save to!"};
}

Queue redo_queue()
{
    return {std::span(undo.redo_bitmaps).first(depth()), std::span(undo.redo_age).first(depth()), undo.redo_head,
            "[ ERROR ] : Couldn't locate a free redo slot to save to!"};
}

/// Index of the first slot of that age, or -1.
int slot_of_age(const Queue& queue, int age)
{
    const auto found = std::find(queue.ages.begin(), queue.ages.end(), age);
    return found == queue.ages.end() ? -1 : static_cast<int>(found - queue.ages.begin());
}

/// Copies the frame into a slot. A slot of another size is made anew, so that a copy is always whole.
bool copy_frame_to(Bitmap& slot)
{
    if (slot.width() == store.frame_bitmap.width() && slot.height() == store.frame_bitmap.height()) {
        blit(store.frame_bitmap, slot, 0, 0, 0, 0, slot->w, slot->h);
        return true;
    }
    slot.reset(); // first, so that two copies never stand in memory together
    slot = store.frame_bitmap.copy();
    return slot.get() != nullptr;
}

/// Puts the frame into the queue as its newest copy; false when it could not be saved.
bool push(Queue queue)
{
    for (int& age : queue.ages) {
        if (age != undo_slot_free && ++age >= static_cast<int>(queue.ages.size())) age = undo_slot_free;
    }
    const int slot = slot_of_age(queue, undo_slot_free);
    if (slot < 0 || !copy_frame_to(queue.bitmaps[static_cast<std::size_t>(slot)])) {
        log_line(queue.no_slot);
        return false;
    }
    queue.ages[static_cast<std::size_t>(slot)] = undo_slot_newest;
    queue.head = slot;
    return true;
}

/// Blits the copy in `slot` over the frame and frees the slot.
void pop(Queue queue, int slot)
{
    BITMAP* copy = queue.bitmaps[static_cast<std::size_t>(slot)];
    blit(copy, store.frame_bitmap, 0, 0, 0, 0, copy->w, copy->h);
    queue.ages[static_cast<std::size_t>(slot)] = undo_slot_free;
    for (int& age : queue.ages) {
        if (age != undo_slot_free) --age;
    }
}

} // namespace

void push_undo(bool keep_redo)
{
    if (push(undo_queue()) && !keep_redo) undo.redo_age = all_undo_slots_free;
}

void push_redo() { push(redo_queue()); }

void undo_step()
{
    const int slot = slot_of_age(undo_queue(), undo_slot_newest);
    if (slot < 0) return;
    push_redo();
    pop(undo_queue(), slot);
}

void redo_step()
{
    const int slot = slot_of_age(redo_queue(), undo_slot_newest);
    if (slot < 0) return;
    push_undo(true);
    pop(redo_queue(), slot);
}

void reset_undo_slots() { undo = {}; }

BITMAP* stroke_source()
{
    BITMAP* newest = undo.undo_bitmaps[static_cast<std::size_t>(undo.undo_head)];
    return newest ? newest : store.frame_bitmap.get();
}

} // namespace kelu
