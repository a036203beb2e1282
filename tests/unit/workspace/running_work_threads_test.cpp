// SPDX-License-Identifier: MIT
// Painting on while the journal's thread takes tiles, writes and starts anew: for ThreadSanitizer, and every picture is
// found again. And the order of what the thread writes, where a commit fails and is tried again, or another program has
// written.
#include "draw/unsaved.h"
#include "running_work_fixture.h"
#include "runtime/random.h"
#include "workspace/frame_resize.h"
#include "workspace/work_thread.h"

namespace kelu {

TEST_F(RunningWorkTest, StrokesDontWaitAndAreAllThere)
{
    const auto scribble = [](int color) {
        const UndoableOperation step;
        const int x = rnd(store.frame_bitmap.width()), y = rnd(store.frame_bitmap.height());
        rectfill(store.frame_bitmap, x, y, x + 70, y + 20, color);
        touch_area(x, y, x + 70, y + 20);
    };
    for (int i = 0; i < 300; ++i) {
        scribble(i * 77777 & 0xffffff);
        keep_running_work();
        if (i % 7 == 0) undo_step();
        if (i % 40 == 0) toggle_alpha_edit();
        if (i % 90 == 10) crop_frame(1, 1, side - 1 - i % 5, side - 31);
        if (i % 100 == 50) fetch_frame(store.current_frame, 1 - store.current_frame, 0);
        if (i % 60 == 30) settle_running_work();
    }
    settle_running_work();
    const Bitmap painted = merged_frame();
    start_again();
    EXPECT_TRUE(same(merged_frame(), painted));
}

TEST_F(RunningWorkTest, AJournalStaysUntilItsFrameIsInItsFile)
{
    stop_running_work(false);
    const auto begin = [this](int frame, bool drops) {
        return BeginOrder{frame, in_store(frame_file(frame)).string(), journal(frame), drops};
    };
    WorkThread thread;
    thread.start();
    {
        const std::lock_guard lock(unsaved.mutex);
        thread.append(begin(0, false));
        // Of so many colours that its journal is long.
        thread.append(PictureOrder{test::paint(800, 800, [](int, int) { return rnd(1 << 24); })});
    }
    thread.settle();
    ASSERT_TRUE(exists("journal.000"));
    ASSERT_GT(std::filesystem::file_size(journal()), std::size_t{1} << 20);
    std::filesystem::remove(in_store("current.000"));
    std::filesystem::create_directory(in_store("current.000"));
    { // the commit comes behind the beginning of the next frame's journal, as it does when it is tried again
        const std::lock_guard lock(unsaved.mutex);
        thread.append(begin(1, true));
        thread.append_commit(
            {{0, Bitmap(side, side, 0x30), Bitmap(side, side, 0xffffff)}, in_store("current.000").string()});
    }
    EXPECT_FALSE(thread.settle());
    EXPECT_TRUE(exists("journal.000")) << "the only copy of the picture";
    EXPECT_EQ(thread.take_failure().value_or(WorkThread::Failure{}).error, EISDIR);
    {
        const std::lock_guard lock(unsaved.mutex);
        EXPECT_FALSE(unsaved.whole) << "nothing has been painted on the next frame, whose journal is empty";
    }

    std::filesystem::remove(in_store("current.000"));
    EXPECT_TRUE(thread.settle()) << "the commit is tried again";
    EXPECT_EQ(stored_pixel(0), opaque | 0x30);
    EXPECT_FALSE(exists("journal.000"));
}

TEST_F(RunningWorkTest, WhatAnotherProgramDoesToTheFilesLosesNoStroke)
{
    box(20, 0xff8040);
    settle_running_work();
    std::ofstream(journal(), std::ios::app) << "something else";
    box(100, 0x304050);
    for (int i = 0; i < 2; ++i) // the picture follows once the journal has failed
        settle_running_work();
    keep_running_work();
    EXPECT_EQ(reported(), "THE WORKSPACE COULDN'T BE SAVED! journal.000 ERROR OF THE DISK\n");
    const Bitmap painted = merged_frame();
    start_again();
    EXPECT_TRUE(same(merged_frame(), painted));
    start_running_work();
    settle_running_work();
    put_frame(0, opaque | 0x777777, side, side - 30);
    box(100, 0x605040);
    settle_running_work();
    start_again();
    EXPECT_EQ(pixel(store.frame_bitmap, 110, 50), 0x605040) << "the journal goes on from the new file";
    EXPECT_FALSE(kept_aside());
}

} // namespace kelu
