// The help screen and the about box.
#include "gui/menus.h"
#include "gui/slots.h"
#include "runtime/preferences.h"
#include "screens/draw_menu.h"
#include "support/golden.h"
#include "support/session.h"
#include <gtest/gtest.h>

namespace kelu {

using test::Session;

namespace {

enum { USER = 18, HELP_ENTRY = 6, ABOUT_ENTRY = 8 };
enum { TOPICS = 2, PAGE = 3, HELP_EXIT = 4, ABOUT_OKAY = 3 };

void open_entry(Session& session, int entry, int menu)
{
    session.click(USER);
    session.click(entry);
    ASSERT_EQ(menus.menu_id, menu);
}

testing::AssertionResult looks_like(Session& session, const char* golden)
{
    session.move(310, 20);
    session.frame(200);
    return test::matches_golden(session.picture(), golden);
}

} // namespace

TEST(HelpMenu, ShowsPagesFromTheirFirstLine)
{
    Session session(draw_menu);
    open_entry(session, HELP_ENTRY, MENU_DIALOG);
    EXPECT_EQ(preferences.status_bar_on, 0);
    EXPECT_TRUE(looks_like(session, "help_menu"));
    session.click_at(gui.x[TOPICS] + 20, gui.y[TOPICS] + 76);
    EXPECT_EQ(gui.text_id[PAGE], 8);
    gui.scroll_value[PAGE] = 5;
    session.click_at(gui.x[TOPICS] + 20, gui.y[TOPICS] + 16);
    EXPECT_EQ(gui.text_id[PAGE], 2);
    EXPECT_EQ(gui.scroll_value[PAGE], 0);
    EXPECT_TRUE(looks_like(session, "help_page"));
    session.move(gui.x[TOPICS] + 20, 60);
    for (int i = 0; i < 16; ++i)
        session.wheel(-1);
    session.click_at(gui.x[TOPICS] + 20, gui.y[TOPICS] + 206);
    EXPECT_EQ(gui.text_id[PAGE], 51) << "the last topic";
    session.click(HELP_EXIT);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(preferences.status_bar_on, 1);
}

TEST(AboutBox, ShowsItsTitleAndCanBeDragged)
{
    Session session(draw_menu);
    open_entry(session, ABOUT_ENTRY, MENU_ABOUT);
    EXPECT_TRUE(looks_like(session, "about_box"));
    session.click_at(gui.x[1] + 4, gui.y[1] + 4);
    session.click_at(gui.x[1] - 36, gui.y[1] - 16);
    EXPECT_EQ(menus.window_pos[WINDOW_ABOUT].x, 60);
    session.click(ABOUT_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
}

} // namespace kelu
