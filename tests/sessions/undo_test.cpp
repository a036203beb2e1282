// SPDX-License-Identifier: MIT
// Every tool and every ink, as the user starts them: what a writer doesn't report is missing in the stroke source, and
// what undo brings back is the picture of before.
#include "support/history.h"

namespace kelu {

using namespace test;

using UndoSession = HistorySession;

TEST_F(UndoSession, EveryToolIsUndoneWhole)
{
    for (int tool = TOOL_BOX; tool <= TOOL_TEXT; ++tool) {
        for (const int filled : {0, 1}) {
            SCOPED_TRACE("tool " + std::to_string(tool) + (filled ? ", filled" : ""));
            toolbox.tool_slots[0] = tool;
            toolbox.tool_table[static_cast<std::size_t>(tool)][0] = tool == TOOL_SPRAY ? 40 : filled;
            toolbox.tool_table[static_cast<std::size_t>(tool)][1] = 20;
            scatter_frame();
            const Bitmap before = store.frame_bitmap.copy();
            answer();
            ASSERT_EQ(menus.menu_id, MENU_DRAW);
            expect_whole_history(before);
            if (HasFatalFailure()) return;
        }
    }
}

TEST_F(UndoSession, EveryInkIsUndoneWhole)
{
    for (int ink = 0; ink < INK_COUNT; ++ink) {
        SCOPED_TRACE("ink " + std::to_string(ink));
        toolbox.ink_slots[0] = ink;
        for (int column = 0; column < 2; ++column)
            toolbox.ink_table[static_cast<std::size_t>(ink)][static_cast<std::size_t>(column)] = column ? 31 : 200;
        scatter_frame();
        const Bitmap before = store.frame_bitmap.copy();
        session.drag(60, 60, 130, 128);
        session.frame(5);
        expect_whole_history(before);
        if (HasFatalFailure()) return;
    }
}

} // namespace kelu
