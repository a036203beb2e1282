// SPDX-License-Identifier: MIT
// Macros: the screen by mouse and keys, and what running one changes.
#include "runtime/macros.h"
#include "screens/macro_menu.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

enum { TOOL_0 = 10, INK_0 = 16, GRID_ON = 25, WIDTH = 29, X_OFF = 33, OPACITY = 37, TIP = 39, OKAY = 40, LIST = 2 };
enum { TIP_5 = 3 + 5 }; // of the tip menu

void open_macros(Session& session)
{
    session.key(KEY_M);
    ASSERT_EQ(menus.menu_id, MENU_MACRO);
}

void pick_row(Session& session, int slot, int row)
{
    session.click(slot, RIGHT_BUTTON);
    session.click_at(gui.x[LIST] + 10, gui.y[LIST] + 4 + 7 * row);
}

} // namespace

TEST(MacroMenu, EditsStoresAndRunsAMacro)
{
    Session session(draw_menu);
    open_macros(session);
    pick_row(session, TOOL_0 + 1, 7);
    pick_row(session, INK_0 + 2, 1);
    session.click(TOOL_0 + 4);
    session.click(INK_0);
    session.click(INK_0);
    session.click(GRID_ON);
    retype(session, WIDTH, "16");
    retype(session, WIDTH + 2, "8");
    retype(session, X_OFF, "15");
    gui.scroll_value[OPACITY] = 90;
    session.click(TIP);
    session.click(TIP_5);
    session.click_at(160, 20, RIGHT_BUTTON);
    EXPECT_TRUE(looks_like(session, "macro_menu", 300, 20));
    session.click(OKAY);
    EXPECT_EQ(macros.macro_table[0].ink_slot, -1) << "a click on the selected slot takes the selection away";
    session.key(KEY_BACKSPACE);
    session.key(KEY_1);
    EXPECT_EQ(menus.status_message, TIP_MACRO_DONE_1) << "the key says what it has done";
    EXPECT_EQ(gui.hidden[0], 0) << "the drawing menu comes back";
    EXPECT_EQ(toolbox.tool_slots[1], TOOL_LINE);
    EXPECT_EQ(toolbox.ink_slots[2], INK_ADD);
    EXPECT_EQ(toolbox.tool_slot, 4);
    EXPECT_EQ(toolbox.brush_tip, 5);
    EXPECT_EQ(grid.grid_w, 16);
    EXPECT_EQ(grid.grid_off_x, 15);
    EXPECT_EQ(grid.grid_opacity, 90);
    EXPECT_EQ(grid.grid_on, 1);
    session.key(KEY_2);
    EXPECT_EQ(grid.grid_on, 1) << "an untouched macro leaves all as it is";
    EXPECT_EQ(toolbox.tool_slot, 4);
    macros.macro_table[2].ink_slot = 3;
    session.key(KEY_3);
    EXPECT_EQ(toolbox.ink_slot, 3);
    EXPECT_EQ(valid_macro({.grid_mode = MACRO_GRID_ON, .grid_w = 1}).grid_mode, MACRO_GRID_IGNORE);
}

} // namespace kelu
