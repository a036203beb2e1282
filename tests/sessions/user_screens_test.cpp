// SPDX-License-Identifier: MIT
// What hangs under USER beside options, keys and buttons: scheme editor, workspace menu.
#include "gui/text_colours.h"
#include "runtime/sheets.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

enum { SCHEME_ENTRY = 5, WORKSPC_ENTRY = 7 };
enum { BACKGROUND = 77, BORDER = 79, TEXT_ALT = 93, SCHEME_OKAY = 107, SCHEME_SAVE, SCHEME_LOAD, SCHEME_CANCEL };
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

TEST(WorkspaceMenu, PacksBringsBackAndWipes)
{
    Session session(draw_menu);
    store.workspace_notes = std::string(200, 'N');
    open_entry(session, HOME_USER, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click_at(gui.x[TITLE] + 140, gui.y[TITLE] + 4); // the caret goes behind the text
    session.type(" AB");
    EXPECT_TRUE(looks_like(session, "workspace_menu", 310, 20));
    EXPECT_EQ(store.workspace_title, "UNNAMED WORKSPACE ab") << "at once";
    session.click(WORKSPACE_SAVE);
    choose_file(session, "PACK");
    EXPECT_EQ(store.workspace_notes.size(), 200U) << "what is longer than the field stays";
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
