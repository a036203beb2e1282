// SPDX-License-Identifier: MIT
// A workspace of three frames whose work is kept while it is done, and the next start on what it left.
#pragma once

#include "draw/touched.h"
#include "draw/undo.h"
#include "support/failing_calls.h"
#include "support/pictures.h"
#include "workspace/running_work.h"
#include "workspace_fixture.h"

namespace kelu {

constexpr int side = 200; // pixels: several tiles, and smaller ones at the rims

inline void box(int x, int color)
{
    const UndoableOperation step;
    rectfill(store.frame_bitmap, x, 10, x + 40, 90, color);
    touch_area(x, 10, x + 40, 90);
}

inline Bitmap merged_frame()
{
    Bitmap merged(store.frame_bitmap.width(), store.frame_bitmap.height());
    alpha_merge(merged);
    return merged;
}

inline bool same(const Bitmap& a, const Bitmap& b) { return test::difference(a, b).empty(); }

class RunningWorkTest : public WorkspaceTest {
protected:
    void SetUp() override
    {
        for (int frame = 0; frame < 3; ++frame)
            put_frame(frame, frame_color(frame), side, side - 30);
        store.frame_count = 3;
        store.current_frame = 0;
        ASSERT_TRUE(fetch_frame(0, 0, 0));
        ASSERT_TRUE(write_workspace_state("current.spa", false));
        start_running_work();
    }
    ~RunningWorkTest() override { stop_running_work(false); }

    /// The end without a word, and the start on what it left.
    static void start_again()
    {
        stop_running_work(false);
        forget();
        ASSERT_EQ(read_state(), 1);
    }

    std::string journal(int frame = 0) const { return in_store(frame_file(frame, file_set::journal)).string(); }
    bool kept_aside() const { return exists("damaged.journal.000"); }
};

} // namespace kelu
