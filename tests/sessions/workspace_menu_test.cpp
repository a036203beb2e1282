// The workspace menu: title, notes, the whole workspace in and out, and its end.
#include "gui/menus.h"
#include "gui/slots.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "screens/draw_menu.h"
#include "support/golden.h"
#include "support/session.h"
#include <gtest/gtest.h>

namespace kelu {

using test::RIGHT_BUTTON;
using test::Session;

namespace {

enum { USER = 18, WORKSPC_ENTRY = 7 };
enum { TITLE = 6, NOTES = 7, WORKSPACE_SAVE, WORKSPACE_LOAD, WORKSPACE_NEW, WORKSPACE_RETURN = 11 };
enum { DIALOG_OKAY = 2, DIALOG_CANCEL = 3 };

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

TEST(WorkspaceMenu, KeepsTitleAndNotesAndAsksBeforeTheWipe)
{
    Session session(draw_menu);
    open_entry(session, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click_at(gui.x[TITLE] + 140, gui.y[TITLE] + 4); // the caret goes behind the text
    session.type(" AB");
    EXPECT_EQ(store.workspace_title, "UNNAMED WORKSPACE ab") << "at once";
    session.click_at(gui.x[NOTES] + 140, gui.y[NOTES] + 4);
    session.type("9");
    EXPECT_TRUE(looks_like(session, "workspace_menu"));
    session.click_at(10, 20, RIGHT_BUTTON);
    EXPECT_EQ(gui.hidden[TITLE], 1);
    session.click_at(10, 20, RIGHT_BUTTON);
    session.click(WORKSPACE_RETURN);
    EXPECT_EQ(store.workspace_notes, "...9");
    store.workspace_notes = std::string(200, 'N');
    open_entry(session, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click(WORKSPACE_NEW);
    session.click(DIALOG_CANCEL);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(store.workspace_notes.size(), 200U) << "what is longer than the field stays";
    EXPECT_EQ(store.workspace_title, "UNNAMED WORKSPACE ab");
    open_entry(session, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click(WORKSPACE_NEW);
    session.click(DIALOG_OKAY);
    EXPECT_EQ(store.workspace_title, "UNNAMED WORKSPACE");
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
}

TEST(WorkspaceMenu, PacksTheWorkspaceAndBringsItBack)
{
    Session session(draw_menu);
    open_entry(session, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click_at(gui.x[TITLE] + 140, gui.y[TITLE] + 4);
    session.type("1");
    session.click(WORKSPACE_SAVE);
    ASSERT_EQ(menus.menu_id, MENU_BROWSER);
    session.type("PACK");
    session.key(KEY_ENTER);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    toolbox.brush_color = 0x123456;
    store.workspace_title = "ANOTHER";
    open_entry(session, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click(WORKSPACE_LOAD);
    session.click_at(10, 20, RIGHT_BUTTON);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(store.workspace_title, "ANOTHER") << "a cancelled browser changes nothing";
    open_entry(session, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click(WORKSPACE_LOAD);
    session.type("PACK");
    session.key(KEY_ENTER);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(store.workspace_title, "UNNAMED WORKSPACE1");
    EXPECT_NE(toolbox.brush_color, 0x123456);
}

} // namespace kelu
