// SPDX-License-Identifier: MIT
// The brush tool, ink and tip menus and the option keys, by mouse and keys.
#include "support/screen_session.h"
#include <string>

namespace kelu {

using namespace test;

namespace {

enum { LIST = 2, CHOICE_0 = 3, OPTION_0 = 13 };
enum { CUSTOM = 2 };

/// The left part of a list's row, counted from the first one that shows.
void click_row(Session& session, int row) { session.click_at(gui.x[LIST] + 10, gui.y[LIST] + 5 + 7 * row); }

int tip_pixel(int x, int y) { return row(store.tip_sheet, y)[x]; }

} // namespace

TEST(ChoiceMenu, PicksAToolIntoTheEditedSlot)
{
    Session session;
    session.click(HOME_TOOL_0 + 3, RIGHT_BUTTON);
    click_row(session, 3);
    EXPECT_EQ(toolbox.tool_slots[3], TOOL_DRIZ);
    EXPECT_TRUE(looks_like(session, "tool_menu"));
    EXPECT_EQ(toolbox.tool_slot, 3) << "the edited slot is the selected one";
    const int slider = OPTION_0 + 1;
    session.click_at(gui.x[slider] + gui.w[slider] - 4, gui.y[slider] + 4);
    EXPECT_EQ(toolbox.tool_table[TOOL_DRIZ][0], int(gui.scroll_value[slider])) << "the slider writes its option";
    session.click(CHOICE_0);
    EXPECT_EQ(toolbox.tool_slot, 0);
    session.click_at(160, 40, RIGHT_BUTTON);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(gui.text_id[HOME_TOOL_0 + 3], first_tool_name + TOOL_DRIZ);
    EXPECT_EQ(gui.hidden[0], 0) << "the click that leaves hides nothing";
}

TEST(TipMenu, TakesACustomTipFromTheFrame)
{
    Session session;
    rectfill(store.frame_bitmap, 100, 80, 103, 83, 0x300000);
    session.click(HOME_TIP);
    session.click(CUSTOM, RIGHT_BUTTON);
    session.click_at(104, 84);
    EXPECT_EQ(tip_pixel(4, 45 + 3), 0x101010) << "the mean of the channels";
    EXPECT_EQ(tip_pixel(12, 45 + 10), 0);
    session.click(CUSTOM);
    session.click_at(160, 40, RIGHT_BUTTON);
    EXPECT_EQ(toolbox.brush_tip, custom_tip);
}

TEST(OptionKeys, FlipSlideAndTellWhatTheyDo)
{
    Session session;
    toolbox.tool_slots[0] = TOOL_BOX;
    toolbox.tool_table[TOOL_BOX][0] = 0;
    session.key(KEY_INSERT);
    EXPECT_EQ(toolbox.tool_table[TOOL_BOX][0], 1);
    EXPECT_EQ(menus.status_message, TIP_NOW_FILLED);
    toolbox.tool_slots[0] = TOOL_FILL;
    toolbox.tool_table[TOOL_FILL][0] = 10;
    session.move(160, 100);
    session.hold_key(KEY_INSERT);
    EXPECT_EQ(gui.scroll_value[2], 10);
    session.wheel(1);
    session.release_key(KEY_INSERT);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_NE(toolbox.tool_table[TOOL_FILL][0], 10);
    toolbox.tool_slots[0] = TOOL_LINE;
    session.key(KEY_INSERT);
    EXPECT_EQ(menus.menu_id, MENU_DRAW) << "a line has no option";
}

} // namespace kelu
