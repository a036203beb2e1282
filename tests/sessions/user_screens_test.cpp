// SPDX-License-Identifier: MIT
// What hangs under USER beside options, keys and buttons: scheme editor, help, about box, workspace menu.
#include "gui/text_colours.h"
#include "runtime/sheets.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

enum { SCHEME_ENTRY = 5, HELP_ENTRY, WORKSPC_ENTRY, ABOUT_ENTRY };
enum { BACKGROUND = 77, BORDER = 79, TEXT_ALT = 93, SCHEME_OKAY = 107, SCHEME_SAVE, SCHEME_LOAD, SCHEME_CANCEL };
enum { TOPICS = 2, PAGE = 3, HELP_EXIT = 4 };
enum { TITLE = 6, WORKSPACE_SAVE = 8, WORKSPACE_LOAD, WORKSPACE_NEW };
enum { FIRST_FAVORITE = 8 };
constexpr int blue = 0x203060;

/// A pixel of an arrow in the GUI sheet, which has the background's colour.
int arrow_pixel()
{
    for (int y = 111; y <= 163; ++y)
        for (int x = 0; x < 50; ++x)
            if (getr(getpixel(sheets.gui_sheet, x + 60, y)) == 153) return getpixel(sheets.gui_sheet, x, y);
    return -1;
}

} // namespace

TEST(SchemeMenu, TriesColoursOutAndWearsThemAtOkay)
{
    Session session(draw_menu);
    open_entry(session, HOME_USER, SCHEME_ENTRY, MENU_SCHEME);
    EXPECT_TRUE(looks_like(session, "scheme_menu", 310, 20));
    session.click(BACKGROUND);
    session.click(FIRST_FAVORITE);
    const int picked = gui.colour[FIRST_FAVORITE];
    session.click_at(310, 20, RIGHT_BUTTON);
    EXPECT_EQ(gui.colour[BACKGROUND], picked);
    EXPECT_EQ(arrow_pixel(), picked) << "the sheet follows the swatches";
    gui.colour[BACKGROUND] = blue;
    gui.colour[BORDER] = blue;
    gui.colour[TEXT_ALT] = 0x80ff41;
    session.click(BORDER, RIGHT_BUTTON);
    EXPECT_TRUE(looks_like(session, "scheme_menu_edited", 310, 20)) << "only the preview, and the border's default";
    session.click(SCHEME_SAVE);
    choose_file(session, "MINE");
    session.click(SCHEME_OKAY);
    EXPECT_EQ(menu_scheme.scheme_background, blue);
    EXPECT_EQ(text_colours[SET_FOLDER][0], 0x403f10) << "set 43 is darkened from set 38";
    open_entry(session, HOME_USER, SCHEME_ENTRY, MENU_SCHEME);
    session.click(BACKGROUND, RIGHT_BUTTON);
    session.click(SCHEME_LOAD);
    choose_file(session, "NONE");
    ASSERT_EQ(menus.menu_id, MENU_DIALOG) << "told at once";
    session.key(KEY_ESC);
    ASSERT_EQ(menus.menu_id, MENU_SCHEME);
    EXPECT_EQ(gui.colour[BACKGROUND], scheme_default[SCHEME_BACKGROUND]) << "no such file";
    session.click(SCHEME_LOAD);
    choose_file(session, "MINE");
    EXPECT_EQ(gui.colour[BACKGROUND], blue);
    session.click(BACKGROUND, RIGHT_BUTTON);
    session.click(SCHEME_CANCEL);
    EXPECT_EQ(menu_scheme.scheme[SCHEME_BACKGROUND], blue) << "what was worn before";
    EXPECT_EQ(arrow_pixel(), blue);
}

TEST(HelpMenu, ShowsPagesFromTheirFirstLine)
{
    Session session(draw_menu);
    open_entry(session, HOME_USER, HELP_ENTRY, MENU_DIALOG);
    EXPECT_TRUE(looks_like(session, "help_menu", 310, 20));
    gui.scroll_value[PAGE] = 5;
    session.click_at(gui.x[TOPICS] + 20, gui.y[TOPICS] + 16);
    EXPECT_EQ(gui.scroll_value[PAGE], 0);
    EXPECT_TRUE(looks_like(session, "help_page", 310, 20));
    session.move(gui.x[TOPICS] + 20, 60);
    for (int i = 0; i < 16; ++i)
        session.wheel(-1);
    session.click_at(gui.x[TOPICS] + 20, gui.y[TOPICS] + 206);
    EXPECT_EQ(gui.text_id[PAGE], 51) << "the last topic";
    session.click(HELP_EXIT);
    EXPECT_EQ(menus.status_bar_away, 0);
}

TEST(AboutBox, ShowsItsTitleAndMoves)
{
    Session session(draw_menu);
    open_entry(session, HOME_USER, ABOUT_ENTRY, MENU_ABOUT);
    EXPECT_TRUE(looks_like(session, "about_box", 310, 20));
    session.click_at(gui.x[1] + 4, gui.y[1] + 4);
    session.click_at(gui.x[1] - 36, gui.y[1] - 16);
    EXPECT_EQ(menus.window_pos[WINDOW_ABOUT].x, 60);
}

TEST(WorkspaceMenu, PacksBringsBackAndWipes)
{
    Session session(draw_menu);
    store.workspace_notes = std::string(200, 'N');
    open_entry(session, HOME_USER, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click_at(gui.x[TITLE] + 140, gui.y[TITLE] + 4); // the caret goes behind the text
    session.type(" AB");
    EXPECT_TRUE(looks_like(session, "workspace_menu", 310, 20));
    EXPECT_EQ(store.workspace_title, "UNNAMED WORKSPACE ab") << "at once";
    session.click_at(10, 20, RIGHT_BUTTON);
    EXPECT_EQ(gui.hidden[TITLE], 1);
    session.click_at(10, 20, RIGHT_BUTTON);
    session.click(WORKSPACE_SAVE);
    choose_file(session, "PACK");
    EXPECT_EQ(store.workspace_notes.size(), 200U) << "what is longer than the field stays";
    open_entry(session, HOME_USER, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click(WORKSPACE_NEW);
    session.click(DIALOG_CANCEL);
    EXPECT_EQ(store.workspace_title, "UNNAMED WORKSPACE ab");
    open_entry(session, HOME_USER, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click(WORKSPACE_NEW);
    session.click(DIALOG_OKAY);
    EXPECT_EQ(store.workspace_title, "UNNAMED WORKSPACE");
    open_entry(session, HOME_USER, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click(WORKSPACE_LOAD);
    choose_file(session, "PACK");
    EXPECT_EQ(store.workspace_title, "UNNAMED WORKSPACE ab");
}

} // namespace kelu
