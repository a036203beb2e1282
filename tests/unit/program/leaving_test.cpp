// SPDX-License-Identifier: MIT
// The end from inside an operation that takes too long.
#include "program/leaving.h"

#include "../workspace/workspace_fixture.h"
#include "draw/touched.h"

namespace kelu {
namespace {

using LastWork = WorkspaceTest;

TEST_F(LastWork, HalfAnOperationIsTakenBackAndWhatWasBeforeIsWritten)
{
    for (const bool alpha : {false, true}) {
        make_frames(1);
        store.alpha_edit_mode = 0;
        const auto paint = [](int y, int color) {
            hline(store.frame_bitmap, 0, y, 7, color);
            touch_area(0, y, 7, y);
        };
        {
            const UndoableOperation whole;
            paint(1, 0x112233);
        }
        if (alpha) toggle_alpha_edit();
        {
            const UndoableOperation half;
            paint(1, 0x808080);
            paint(2, 0x808080);
            EXPECT_EQ(write_last_work(), Leaving::WRITTEN);
        }
        const Bitmap written = read_tga(in_store("current.000").string());
        EXPECT_EQ(pixel(written, 3, 1), opaque | 0x112233) << alpha;
        EXPECT_EQ(pixel(written, 3, 2), frame_color(0)) << alpha;
    }
}

TEST_F(LastWork, AnOperationThatChangedTheSizeIsKept)
{
    make_frames(1);
    {
        const UndoableOperation resize;
        store.frame_bitmap = Bitmap(20, 10, 0x445566);
        store.alpha_bitmap = Bitmap(20, 10, 0xffffff);
        EXPECT_EQ(write_last_work(), Leaving::WRITTEN);
    }
    EXPECT_EQ(pixel(read_tga(in_store("current.000").string()), 19, 9), opaque | 0x445566);
}

} // namespace
} // namespace kelu
