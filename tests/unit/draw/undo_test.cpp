// SPDX-License-Identifier: MIT
// The queues against the pictures of each step, and against queues of whole copies.
#include "draw/undo.h"

#include "draw/touched.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "support/fresh_state.h"
#include "support/pictures.h"
#include <algorithm>
#include <string>
#include <vector>

namespace kelu {
namespace {

class UndoTest : public test::FreshState {
protected:
    void SetUp() override
    {
        reset();
        preferences.undo_depth = 3;
        store.frame_bitmap = Bitmap(4, 3);
    }
};

TEST_F(UndoTest, DepthZeroSavesNothingAndKeepsRedo)
{
    const auto paint = [](int color) {
        const UndoableOperation step;
        clear_to_color(store.frame_bitmap, color);
        touch_frame();
    };
    const auto shown = [] { return row(store.frame_bitmap, 2)[3]; };
    paint(1);
    undo_step();
    preferences.undo_depth = 0;
    paint(7);
    undo_step();
    redo_step();
    EXPECT_EQ(shown(), 7);
    preferences.undo_depth = 3;
    redo_step();
    EXPECT_EQ(shown(), 1);
}

/// Queues of whole copies, as users see them.
struct CopyQueues {
    std::vector<Bitmap> undo, redo; // the newest last

    static void push(std::vector<Bitmap>& queue)
    {
        queue.push_back(store.frame_bitmap.copy());
        if (queue.size() > static_cast<std::size_t>(preferences.undo_depth)) queue.erase(queue.begin());
    }
    /// The picture that a step from one queue to the other leaves.
    static Bitmap step(std::vector<Bitmap>& from, std::vector<Bitmap>& to)
    {
        Bitmap picture = store.frame_bitmap.copy();
        if (from.empty()) return picture;
        push(to);
        blit(from.back(), picture, 0, 0, 0, 0, from.back().width(), from.back().height());
        from.pop_back();
        return picture;
    }
};

TEST_F(UndoTest, TilesShowWhatWholeCopiesWouldShow)
{
    const auto box = [](int color) {
        const int x = rnd(store.frame_bitmap.width()) - 20, y = rnd(store.frame_bitmap.height()) - 20;
        const int right = x + rnd(90), bottom = y + rnd(90);
        rectfill(store.frame_bitmap, x, y, right, bottom, color);
        touch_area(x, y, right, bottom);
    };
    for (int run = 0; run < 40; ++run) {
        SetUp();
        seed_random(static_cast<uint32_t>(run));
        preferences.undo_depth = 1 + run % 5;
        store.frame_bitmap = Bitmap(200, 150);
        reset_undo_slots();
        CopyQueues copies;
        for (int i = 0; i < 60; ++i) {
            const int choice = rnd(10);
            if (choice < 4) { // an operation
                CopyQueues::push(copies.undo);
                copies.redo.clear();
                const UndoableOperation step;
                box(run * 1000 + i);
                box(run * 2000 + i);
            } else if (choice == 4) { // a writer outside of any
                box(run * 3000 + i);
            } else if (choice == 5 && run % 4 == 1) { // both queues freed
                copies = {};
                reset_undo_slots();
            } else if (choice == 5 && run % 2 == 0) { // another size
                Bitmap sized(100 + rnd(120), 100 + rnd(120), i);
                blit(store.frame_bitmap, sized, 0, 0, 0, 0, sized.width(), sized.height());
                store.frame_bitmap = std::move(sized);
                touch_frame();
            } else {
                const bool back = choice < 8;
                const Bitmap expected =
                    back ? CopyQueues::step(copies.undo, copies.redo) : CopyQueues::step(copies.redo, copies.undo);
                back ? undo_step() : redo_step();
                ASSERT_EQ(test::difference(store.frame_bitmap, expected), "") << "run " << run << ", step " << i;
            }
            settle_frame();
            ASSERT_EQ(test::difference(store.frame_bitmap, stroke_source()), "") << "run " << run << ", step " << i;
        }
    }
}

TEST_F(UndoTest, SlotsKeepTheTouchedTilesAlone)
{
    store.frame_bitmap = Bitmap(1000, 1000);
    store.coverage_bitmap = Bitmap(1000, 1000, 7);
    reset_undo_slots();
    {
        const UndoableOperation step;
        touch_area(60, 130, 70, 140);
        row(store.frame_bitmap, 135)[66] = 5;
    }
    const TileSet& slot = undo.undo_slots[0];
    EXPECT_EQ(std::ranges::count_if(slot.tiles, [](const auto& tile) { return tile != nullptr; }), 1)
        << "what was touched and stayed the same is not kept";
    EXPECT_TRUE(slot.has(slot.grid.at(66, 135)));
    EXPECT_EQ(row(store.coverage_bitmap, 128)[0], 0) << "the coverage is cleared where it was touched";
    EXPECT_EQ(row(store.coverage_bitmap, 127)[0], 7);
}

} // namespace
} // namespace kelu
