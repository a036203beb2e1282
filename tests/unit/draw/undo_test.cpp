// The queues of snapshots against the pictures of each step.
#include "draw/undo.h"

#include "runtime/preferences.h"
#include "runtime/store.h"
#include "support/fresh_state.h"
#include <string>

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
    // Digits paint, U and R step back and forth; after each the colour that shows.
    for (const auto& [steps, seen] : {std::pair{"123UUUURRURRR", "1232100121233"},
                                      {"1234UUUUU", "123432111"}, // the oldest copy falls out at the depth
                                      {"12U5RU", "121551"},       // a new operation ends redo and is itself undone
                                      {"12UxUR", "121111"}}) {    // a reset frees both queues
        SetUp();
        std::string shows;
        for (const char* step = steps; *step; ++step) {
            if (*step == 'U') undo_step();
            if (*step == 'R') redo_step();
            if (*step == 'x') reset_undo_slots();
            if (*step >= '0' && *step <= '9') paint(*step - '0');
            shows += static_cast<char>('0' + shown());
        }
        EXPECT_EQ(shows, seen) << steps;
    }
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

} // namespace
} // namespace kelu
