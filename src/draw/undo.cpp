// SPDX-License-Identifier: MIT
// The two queues of slots, written as one: each function works on a view of the undo or of the redo side.
#include "draw/undo.h"

#include "base/log.h"
#include "draw/touched.h"
#include "draw/unsaved.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include <algorithm>
#include <new>
#include <span>
#include <utility>

namespace kelu {
namespace {

/// One side of `undo`, cut to the slots in use.
struct Queue {
    std::span<TileSet> slots;
    std::span<int> ages;
    int& head;
    const char* no_slot; ///< log line when nothing can be saved
};

std::size_t depth() { return static_cast<std::size_t>(std::clamp<int>(preferences.undo_depth, 0, max_undo_depth)); }

Queue undo_queue(std::size_t used)
{
    return {std::span(undo.undo_slots).first(used), std::span(undo.undo_age).first(used), undo.undo_head,
            "[ ERROR ] : Couldn't locate a free undo slot to save to!"};
}

Queue redo_queue(std::size_t used)
{
    return {std::span(undo.redo_slots).first(used), std::span(undo.redo_age).first(used), undo.redo_head,
            "[ ERROR ] : Couldn't locate a free redo slot to save to!"};
}

/// The first slot of that age, or null.
TileSet* slot_of_age(const Queue& queue, int age)
{
    const auto found = std::find(queue.ages.begin(), queue.ages.end(), age);
    return found == queue.ages.end() ? nullptr : &queue.slots[found - queue.ages.begin()];
}

/// The tile's pixels where a writer has changed them go to the newest picture of the queue, unless it has its own.
void keep_in_newest(const Queue& queue, std::size_t tile)
{
    TileSet* newest = slot_of_age(queue, undo_slot_newest);
    if (newest && newest->grid == TileGrid::of(undo.source_bitmap) && !newest->has(tile))
        newest->keep(tile, undo.source_bitmap);
}

void keep_before(std::size_t tile)
{
    keep_in_newest(undo_queue(max_undo_depth), tile);
    keep_in_newest(redo_queue(max_undo_depth), tile);
}

/// What a settled frame means to the other pictures of it.
enum class Settle {
    OPERATION, ///< the newest slots keep what was before, the journal takes what is now
    STEP,      ///< the slots have been exchanged already
    EXCHANGE   ///< the journal knows the picture in its other role
};

void settle_tile(std::size_t tile, Settle how)
{
    const TileBox box = touched.grid.box(tile);
    const Bitmap& frame = store.frame_bitmap;
    Bitmap& coverage = store.coverage_bitmap;
    if (TileGrid::of(coverage) == touched.grid) {
        for (int y = box.y; y < box.y + box.h; ++y)
            std::fill_n(row(coverage, y) + box.x, box.w, 0);
    }
    const bool same = same_tile(frame, undo.source_bitmap, box);
    if (same && (touched.marks[tile] & Touched::SEEN) == 0) return;
    if (!same && how != Settle::STEP) keep_before(tile);
    const std::lock_guard lock(unsaved.mutex);
    copy_tile(frame, undo.source_bitmap, box);
    if (how != Settle::EXCHANGE) unsaved.add(tile, touched.grid.count());
}

/// The memory of pictures that have fallen out of their queues. At an operation's end, where nobody waits.
void release_free_slots()
{
    undo.outworn = {};
    for (std::size_t i = 0; i < max_undo_depth; ++i) {
        if (undo.undo_age[i] == undo_slot_free) undo.undo_slots[i] = {};
        if (undo.redo_age[i] == undo_slot_free) undo.redo_slots[i] = {};
    }
}

void free_slots()
{
    undo.undo_age = undo.redo_age = all_undo_slots_free;
    release_free_slots();
}

/// Makes the source a copy of the whole frame, in the old memory where the size is the same.
void copy_source(FunctionRef<void(int y)> make_row)
{
    const Bitmap& frame = store.frame_bitmap;
    Bitmap& source = undo.source_bitmap;
    touched.restart(TileGrid::of(frame));
    const std::lock_guard lock(unsaved.mutex);
    unsaved.clear();
    unsaved.whole = true;
    if (!frame || TileGrid::of(frame) != TileGrid::of(source)) {
        source.reset(); // first, so that two copies are never in memory together
        if (frame) source = Bitmap::unfilled(frame.width(), frame.height());
    }
    for (int y = 0; y < frame.height(); ++y) {
        make_row(y);
        if (source) std::copy_n(row(frame, y), frame.width(), row(source, y));
    }
}

void copy_source()
{
    copy_source([](int) {});
}

/// The frame has another size: the newest pictures become whole, in theirs.
void leave_size()
{
    if (undo.source_bitmap) {
        for (std::size_t tile = 0; tile < TileGrid::of(undo.source_bitmap).count(); ++tile)
            keep_before(tile);
    }
    copy_source();
}

/// While it exists, no seal of the journal divides the tiles of one operation.
class Settling {
public:
    Settling() { note(true); }
    ~Settling()
    {
        note(false);
        unsaved.news.notify_all();
    }
    Settling(const Settling&) = delete;
    Settling& operator=(const Settling&) = delete;

private:
    static void note(bool settling)
    {
        const std::lock_guard lock(unsaved.mutex);
        unsaved.settling = settling;
    }
};

void settle(Settle how)
{
    if (!store.frame_bitmap) return;
    if (TileGrid::of(store.frame_bitmap) != TileGrid::of(undo.source_bitmap)) {
        leave_size();
        return;
    }
    if (touched.tiles.empty()) return;
    const Settling settling;
    for (const std::size_t tile : touched.tiles)
        settle_tile(tile, how);
    touched.restart(touched.grid);
    release_free_slots();
}

/// Settles the frame. When there is no memory for what it was before, no older picture can be had either.
void settle_or_forget(Settle how)
{
    try {
        settle(how);
    } catch (const std::bad_alloc&) {
        log_line("[ ERROR ] : Not enough memory for undo");
        free_slots();
        copy_source();
    }
}

/// A free slot as the newest of the queue; null when there is none.
TileSet* add_newest(const Queue& queue)
{
    for (int& age : queue.ages) {
        if (age != undo_slot_free && ++age >= static_cast<int>(queue.ages.size())) age = undo_slot_free;
    }
    TileSet* slot = slot_of_age(queue, undo_slot_free);
    if (!slot) {
        log_line(queue.no_slot);
        return nullptr;
    }
    queue.head = static_cast<int>(slot - queue.slots.data());
    queue.ages[queue.head] = undo_slot_newest;
    return slot;
}

/// Exchanges the slot's tiles with those of a frame of its size.
void exchange_tiles(TileSet& slot)
{
    TilePixels before;
    for (std::size_t tile = 0; tile < slot.tiles.size(); ++tile) {
        if (!slot.has(tile)) continue;
        const TileBox box = slot.grid.box(tile);
        before.take(store.frame_bitmap, box);
        slot.tiles[tile]->put(store.frame_bitmap, box);
        *slot.tiles[tile] = before;
        touched.mark(tile);
    }
}

/// The part of a whole picture of another size that the frame has pixels for goes to the frame; the result is what the
/// frame had there.
TileSet exchange_picture(const TileSet& picture)
{
    const TileGrid grid = TileGrid::of(store.frame_bitmap);
    TileSet before{grid, {}};
    for (std::size_t tile = 0; tile < picture.tiles.size(); ++tile) {
        TileBox box = picture.grid.box(tile);
        if (box.x >= grid.w || box.y >= grid.h) continue;
        const std::size_t there = grid.at(box.x, box.y);
        before.keep(there, store.frame_bitmap);
        box.w = std::min(box.w, grid.w - box.x);
        box.h = std::min(box.h, grid.h - box.y);
        picture.tiles[tile]->put(store.frame_bitmap, box);
        touched.mark(there);
    }
    return before;
}

/// The next older picture learns what only its younger neighbour, which leaves the queue, has kept.
void complete_older(const Queue& queue, const TileSet& newest)
{
    TileSet* older = slot_of_age(queue, undo_slot_newest + 1);
    if (!older || older->grid != newest.grid) return;
    older->tiles.resize(newest.grid.count());
    for (std::size_t tile = 0; tile < newest.tiles.size(); ++tile)
        if (!older->has(tile) && newest.has(tile))
            older->tiles[tile] = std::make_unique<TilePixels>(*newest.tiles[tile]);
}

/// Brings the newest picture of a queue back; what it replaces becomes the newest of the other one.
void step(const Queue& from, const Queue& to)
{
    settle_frame();
    TileSet* newest = slot_of_age(from, undo_slot_newest);
    if (!newest || !undo.source_bitmap) return;
    try {
        TileSet before;
        if (newest->grid == touched.grid) {
            exchange_tiles(*newest);
            before = std::move(*newest);
        } else {
            complete_older(from, *newest);
            before = exchange_picture(*newest);
        }
        from.ages[newest - from.slots.data()] = undo_slot_free;
        for (int& age : from.ages) {
            if (age != undo_slot_free) --age;
        }
        if (TileSet* slot = add_newest(to)) *slot = std::move(before);
    } catch (const std::bad_alloc&) {
        log_line("[ ERROR ] : Not enough memory for undo");
        free_slots();
    }
    settle_or_forget(Settle::STEP);
}

} // namespace

void push_undo(bool keep_redo)
{
    settle_frame();
    const Queue queue = undo_queue(depth());
    if (!undo.source_bitmap) {
        log_line(queue.no_slot);
        return;
    }
    TileSet* slot = add_newest(queue);
    if (!slot) return;
    undo.outworn = std::exchange(*slot, {touched.grid, {}});
    if (!keep_redo) undo.redo_age = all_undo_slots_free;
}

void settle_frame() { settle_or_forget(Settle::OPERATION); }

void settle_exchanged_frame() { settle_or_forget(Settle::EXCHANGE); }

void take_back_operation()
{
    if (undo.operations == 0 || TileGrid::of(store.frame_bitmap) != TileGrid::of(undo.source_bitmap)) return;
    for (const std::size_t tile : touched.tiles)
        copy_tile(undo.source_bitmap, store.frame_bitmap, touched.grid.box(tile));
    settle_frame();
}

void undo_step() { step(undo_queue(depth()), redo_queue(depth())); }

void redo_step() { step(redo_queue(depth()), undo_queue(depth())); }

void reset_undo_slots()
{
    reset_undo_slots([](int) {});
}

void reset_undo_slots(FunctionRef<void(int y)> make_row)
{
    free_slots();
    undo.undo_head = undo.redo_head = 0;
    copy_source(make_row);
}

BITMAP* stroke_source() { return undo.source_bitmap ? undo.source_bitmap.get() : store.frame_bitmap.get(); }

} // namespace kelu
