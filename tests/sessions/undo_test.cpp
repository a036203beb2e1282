// SPDX-License-Identifier: MIT
// Every tool, every ink and every command that changes the frame, as the user starts them: what a writer doesn't report
// is missing in the stroke source, and what undo brings back is the picture of before.
#include "draw/touched.h"
#include "draw/undo.h"
#include "loop/actions.h"
#include "runtime/color_settings.h"
#include "runtime/random.h"
#include "screens/action_table.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

testing::AssertionResult same_picture(BITMAP* a, BITMAP* b)
{
    if (a->w != b->w || a->h != b->h) return testing::AssertionFailure() << "another size";
    for (int y = 0; y < a->h; ++y)
        for (int x = 0; x < a->w; ++x)
            if (row(a, y)[x] != row(b, y)[x])
                return testing::AssertionFailure() << "another pixel at " << x << ", " << y;
    return testing::AssertionSuccess();
}

void scatter_frame()
{
    for (int y = 0; y < store.frame_bitmap.height(); ++y)
        for (int x = 0; x < store.frame_bitmap.width(); ++x)
            row(store.frame_bitmap, y)[x] = rnd(1 << 24) & 0x7f7f7f;
    touch_frame();
    reset_undo_slots();
}

int undo_steps()
{
    return static_cast<int>(std::ranges::count_if(undo.undo_age, [](int age) { return age >= 0; }));
}

/// A slot that ends the screen which is open, -1 when there is none.
int okay_slot()
{
    for (int slot = 0; slot < gui_slots; ++slot)
        if (gui.active[slot] != 0 && gui.hidden[slot] == 0 && gui.text_id[slot] == TEXT_OKAY) return slot;
    return -1;
}

/// Clicks that bring a command to its end: points of the frame, a right click, OKAY where a screen shows it.
void answer(Session& session)
{
    for (int round = 0; round < 4; ++round) {
        if (okay_slot() >= 0) session.click(okay_slot());
        session.click_at(90 + 9 * round, 60 + 7 * round);
        session.click_at(140 - 5 * round, 95 + 3 * round);
        session.click_at(90 + 9 * round, 60 + 7 * round, RIGHT_BUTTON);
    }
    while (okay_slot() >= 0)
        session.click(okay_slot());
    session.frame(60); // messages go
}

class UndoSession : public testing::Test {
protected:
    Session session;

    UndoSession()
    {
        preferences.undo_depth = max_undo_depth;
        preferences.mouse_swap = 0;
        toolbox.tool_slots[0] = TOOL_DRAW;
        toolbox.tool_slot = 0;
        toolbox.ink_slots[0] = INK_OPAQUE;
        toolbox.ink_slot = 0;
        toolbox.brush_tip = 5;
        toolbox.brush_color = 0xf0d0e0;
        toolbox.mask_color = 0x201000;
        color_settings.tint_values = {40, -20, 10};
        store.cel_source_bitmap = Bitmap(70, 40, 0x4060ff);
        store.cel_bitmap = Bitmap(70, 40, 0x4060ff);
        replace_frame(320, 240, 0);
        scatter_frame();
    }

    /// Nothing that has been written is unknown, and all steps lead back and forth.
    static void expect_whole_history(const Bitmap& before, bool expect_steps)
    {
        ASSERT_TRUE(same_picture(stroke_source(), store.frame_bitmap)) << "a writer has not reported";
        EXPECT_TRUE(touched.tiles.empty()) << "an operation has not been ended";
        const int steps = undo_steps();
        EXPECT_GE(steps, expect_steps ? 1 : 0);
        std::vector<Bitmap> pictures;
        for (int i = 0; i < steps; ++i) {
            pictures.push_back(store.frame_bitmap.copy());
            undo_step();
        }
        EXPECT_TRUE(!expect_steps || same_picture(store.frame_bitmap, before)) << "after the last undo";
        for (int i = steps; i-- > 0;) {
            redo_step();
            ASSERT_TRUE(same_picture(store.frame_bitmap, pictures[static_cast<std::size_t>(i)])) << "redo " << i;
        }
    }
};

} // namespace

TEST_F(UndoSession, EveryCommandOfTheTableReportsWhatItWrites)
{
    session.key(KEY_F6);
    hotkeys.hotkey_table[ACTION_FRAME_CLONE].primary = KEY_F8;
    session.key(KEY_F8);
    hotkeys.hotkey_table[ACTION_FRAME_CLONE] = {};
    ASSERT_EQ(store.frame_count, 2);
    for (const ActionRow& action : action_table()) {
        const bool ends = action.action == ACTION_EXIT || action.action == ACTION_RAPID_EXIT;
        const bool reads_files = action.action == ACTION_PIC_SAVE || action.action == ACTION_PIC_LOAD;
        if ((action.flags & CHANGES_FRAME) == 0 || ends || reads_files) continue;
        SCOPED_TRACE("action " + std::to_string(action.action));
        scatter_frame();
        const Bitmap before = store.frame_bitmap.copy();
        const HotkeyRow kept = hotkeys.hotkey_table[action.action];
        hotkeys.hotkey_table[action.action] = {};
        hotkeys.hotkey_table[action.action].primary = KEY_F8;
        session.key(KEY_F8);
        hotkeys.hotkey_table[action.action] = kept;
        answer(session);
        ASSERT_EQ(menus.menu_id, MENU_DRAW);
        expect_whole_history(before, false);
        if (HasFatalFailure()) return;
    }
}

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
            answer(session);
            ASSERT_EQ(menus.menu_id, MENU_DRAW);
            expect_whole_history(before, true);
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
        expect_whole_history(before, true);
        if (HasFatalFailure()) return;
    }
}

TEST_F(UndoSession, AlphaEditingChangesTheRoleOfWhatComesBack)
{
    const auto toggle = [&] { session.key(KEY_SPACE); };
    const Bitmap colors = store.frame_bitmap.copy();
    session.click_at(100, 100);
    const Bitmap painted = store.frame_bitmap.copy();
    toggle();
    ASSERT_EQ(store.alpha_edit_mode, 1);
    EXPECT_EQ(frame_pixel(5, 5), 0xffffff);
    session.click_at(150, 100);
    EXPECT_TRUE(same_picture(stroke_source(), store.frame_bitmap));
    undo_step();
    EXPECT_EQ(frame_pixel(150, 100), 0xffffff);
    undo_step();
    EXPECT_TRUE(same_picture(store.frame_bitmap, colors)) << "the older picture, whatever its role is now";
    redo_step();
    redo_step();
    EXPECT_EQ(frame_pixel(5, 5), 0xffffff);
    EXPECT_EQ(frame_pixel(150, 100), 0xf0d0e0);
    toggle();
    EXPECT_TRUE(same_picture(store.frame_bitmap, painted));
    EXPECT_TRUE(same_picture(stroke_source(), store.frame_bitmap));
}

} // namespace kelu
