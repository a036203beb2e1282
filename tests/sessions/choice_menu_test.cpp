// SPDX-License-Identifier: MIT
// The keys of the tools' options.
#include "support/screen_session.h"
#include <string>

namespace kelu {

using namespace test;

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
