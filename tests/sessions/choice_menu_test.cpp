// SPDX-License-Identifier: MIT
// The tip that is taken from the frame, and the option keys.
#include "support/screen_session.h"
#include <string>

namespace kelu {

using namespace test;

namespace {

enum { CUSTOM = 2 };

int tip_pixel(int x, int y) { return row(store.tip_sheet, y)[x]; }

} // namespace

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
