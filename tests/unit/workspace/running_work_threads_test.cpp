// SPDX-License-Identifier: MIT
// Painting on while the journal's thread takes tiles, writes and starts anew: for ThreadSanitizer, and every picture is
// found again.
#include "draw/touched.h"
#include "draw/undo.h"
#include "runtime/random.h"
#include "workspace/frame_resize.h"
#include "workspace/running_work.h"
#include "workspace_fixture.h"

namespace kelu {
namespace {

void scribble(int color)
{
    const UndoableOperation step;
    const int x = rnd(store.frame_bitmap.width()), y = rnd(store.frame_bitmap.height());
    rectfill(store.frame_bitmap, x, y, x + 70, y + 20, color);
    touch_area(x, y, x + 70, y + 20);
}

} // namespace

using RunningWorkThreadsTest = WorkspaceTest;

TEST_F(RunningWorkThreadsTest, StrokesDontWaitAndAreAllThere)
{
    put_frame(0, frame_color(0), 300, 200);
    put_frame(1, frame_color(1), 300, 200);
    store.frame_count = 2;
    ASSERT_TRUE(fetch_frame(0, 0, 0));
    ASSERT_TRUE(write_workspace_state("current.spa", false));
    start_running_work();
    for (int i = 0; i < 300; ++i) {
        scribble(i * 77777 & 0xffffff);
        keep_running_work();
        if (i % 7 == 0) undo_step();
        if (i % 40 == 0) toggle_alpha_edit();
        if (i % 90 == 10) crop_frame(1, 1, 299 - i % 5, 199);
        if (i % 100 == 50) fetch_frame(store.current_frame, 1 - store.current_frame, 0);
        if (i % 60 == 30) settle_running_work();
    }
    settle_running_work();
    Bitmap painted(store.frame_bitmap.width(), store.frame_bitmap.height());
    alpha_merge(painted);
    stop_running_work(false);
    platform::change_directory(run_state.program_dir);
    FW_initialize_variables();
    store.nail_sheet = Bitmap(400, 400);
    store.tip_sheet = Bitmap(206, 62);
    {
        const platform::DirectoryVisit visit("WORKSPACE");
        ASSERT_EQ(read_workspace_state("current.spa"), 1);
    }
    ASSERT_EQ(store.frame_bitmap.width(), painted.width());
    Bitmap found(painted.width(), painted.height());
    alpha_merge(found);
    for (int y = 0; y < painted.height(); ++y)
        ASSERT_TRUE(std::equal(row(found, y), row(found, y) + found.width(), row(painted, y))) << y;
}

} // namespace kelu
