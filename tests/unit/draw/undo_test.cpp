// The queues of snapshots against the pictures of each step.
#include "draw/undo.h"

#include "runtime/preferences.h"
#include "runtime/store.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

class UndoTest : public testing::Test {
protected:
    void SetUp() override
    {
        undo = {};
        preferences.undo_depth = 3;
        store.frame_bitmap = Bitmap(4, 3);
    }
    void TearDown() override
    {
        undo = {};
        store = {};
        preferences = {};
    }

    /// One operation: the snapshot, then the frame filled with a colour.
    static void paint(int color)
    {
        push_undo(false);
        clear_to_color(store.frame_bitmap, color);
    }
    static int shown() { return row(store.frame_bitmap, 2)[3]; }
};

TEST_F(UndoTest, EachStepReturnsThePictureOfItsPoint)
{
    for (int color = 1; color <= 3; ++color)
        paint(color);
    std::vector<int> seen;
    for (const auto step : {undo_step, undo_step, undo_step, undo_step, redo_step, redo_step, undo_step, redo_step,
                            redo_step, redo_step}) {
        step();
        seen.push_back(shown());
    }
    EXPECT_EQ(seen, (std::vector{2, 1, 0, 0, 1, 2, 1, 2, 3, 3}));
}

TEST_F(UndoTest, OldestCopyFallsOutAtTheDepth)
{
    for (int color = 1; color <= 4; ++color)
        paint(color);
    for (int i = 0; i < 5; ++i)
        undo_step();
    EXPECT_EQ(shown(), 1);
}

TEST_F(UndoTest, NewOperationEndsRedoAndIsItselfUndone)
{
    paint(1);
    paint(2);
    undo_step();
    paint(5);
    redo_step();
    EXPECT_EQ(shown(), 5);
    undo_step();
    EXPECT_EQ(shown(), 1);
}

TEST_F(UndoTest, DepthZeroSavesNothingAndKeepsRedo)
{
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

TEST_F(UndoTest, StrokeSourceIsTheNewestCopyAlsoAfterAnUndo)
{
    EXPECT_EQ(stroke_source(), store.frame_bitmap.get());
    paint(1);
    paint(2);
    EXPECT_EQ(row(stroke_source(), 0)[0], 1);
    undo_step();
    paint(9);
    EXPECT_EQ(row(stroke_source(), 0)[0], 1);
}

TEST_F(UndoTest, FrameOfAnotherSizeIsSavedWholeAndRestoredWhereBothHavePixels)
{
    paint(1);
    store.frame_bitmap = Bitmap(6, 6, 2);
    paint(3);
    EXPECT_EQ(stroke_source()->w, 6);
    undo_step();
    EXPECT_EQ(row(store.frame_bitmap, 5)[5], 2);
    undo_step();
    EXPECT_EQ(row(store.frame_bitmap, 2)[3], 0);
    EXPECT_EQ(row(store.frame_bitmap, 3)[3], 2);
}

TEST_F(UndoTest, ResetFreesBothQueues)
{
    paint(1);
    paint(2);
    undo_step();
    reset_undo_slots();
    undo_step();
    EXPECT_EQ(shown(), 1);
    redo_step();
    EXPECT_EQ(shown(), 1);
}

} // namespace
} // namespace kelu
