// SPDX-License-Identifier: MIT
// A session on a frame in which all pixels differ: what changes it, what brings it back, and clicks that bring any
// command to its end.
#pragma once

#include "draw/preview.h"
#include "draw/touched.h"
#include "runtime/color_settings.h"
#include "runtime/random.h"
#include "support/pictures.h"
#include "support/screen_session.h"
#include "support/tool_session.h"

namespace kelu::test {

/// A slot that ends the screen which is open, -1 when there is none.
inline int okay_slot()
{
    for (int slot = 0; slot < gui_slots; ++slot)
        if (gui.active[slot] != 0 && gui.hidden[slot] == 0 && gui.text_id[slot] == TEXT_OKAY) return slot;
    return -1;
}

class HistorySession : public ToolSession {
protected:
    HistorySession()
    {
        use(TOOL_DRAW);
        preferences.undo_depth = max_undo_depth;
        toolbox.brush_tip = 5;
        toolbox.brush_color = 0xf0d0e0;
        toolbox.mask_color = 0x201000;
        color_settings.tint_values = {40, -20, 10};
        store.cel_source_bitmap = Bitmap(70, 40, 0x4060ff);
        store.cel_bitmap = Bitmap(70, 40, 0x4060ff);
        replace_frame(320, 240, 0);
        scatter_frame();
    }

    static void scatter_frame()
    {
        for (int y = 0; y < store.frame_bitmap.height(); ++y)
            for (int x = 0; x < store.frame_bitmap.width(); ++x)
                row(store.frame_bitmap, y)[x] = rnd(1 << 24) & 0x7f7f7f;
        touch_frame();
        reset_undo_slots();
    }

    /// True while a screen, a tool or a cel waits for the user.
    static bool waits()
    {
        return menus.menu_id != MENU_DRAW || menus.status_message != TIP_NONE || preview.preview_kind != no_preview;
    }

    /// Points of the frame, a right click, OKAY where a screen shows it.
    void answer()
    {
        for (int round = 0; round < 4 && (round == 0 || waits()); ++round) {
            if (okay_slot() >= 0) session.click(okay_slot());
            session.click_at(90 + 9 * round, 60 + 7 * round);
            session.click_at(140 - 5 * round, 95 + 3 * round);
            session.click_at(90 + 9 * round, 60 + 7 * round, RIGHT_BUTTON);
        }
        while (okay_slot() >= 0)
            session.click(okay_slot());
        session.frames_until([] { return menus.status_message == TIP_NONE && previewed() == 0; }, 200);
    }

    /// Nothing that has been written is unknown, and all steps lead back and forth; to the picture of before unless
    /// some of it was committed.
    static void expect_whole_history(const Bitmap& before, int least_steps = 1, bool leads_back = true)
    {
        ASSERT_EQ(difference(stroke_source(), store.frame_bitmap), "") << "a writer has not reported";
        EXPECT_TRUE(touched.tiles.empty()) << "an operation has not been ended";
        const int steps = snapshots();
        EXPECT_GE(steps, least_steps);
        std::vector<Bitmap> pictures;
        for (int i = 0; i < steps; ++i) {
            pictures.push_back(store.frame_bitmap.copy());
            undo_step();
        }
        if (leads_back) {
            EXPECT_EQ(difference(store.frame_bitmap, before), "") << "after the last undo";
        }
        for (int i = steps; i-- > 0;) {
            redo_step();
            ASSERT_EQ(difference(store.frame_bitmap, pictures[static_cast<std::size_t>(i)]), "") << "redo " << i;
        }
    }
};

} // namespace kelu::test
