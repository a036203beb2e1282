// The colour scheme editor: swatches, preview, files.
#include "gui/menus.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "gui/text_colours.h"
#include "runtime/sheets.h"
#include "screens/draw_menu.h"
#include "support/golden.h"
#include "support/session.h"
#include <gtest/gtest.h>

namespace kelu {

using test::RIGHT_BUTTON;
using test::Session;

namespace {

enum { USER = 18, SCHEME_ENTRY = 5 };
enum { SWATCH_BACKGROUND = 77, SWATCH_TEXT_ALT = 93, SCHEME_OKAY = 107, SCHEME_SAVE, SCHEME_LOAD, SCHEME_CANCEL = 110 };

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

/// The GUI sheet's pixels as one number.
unsigned sheet_sum()
{
    unsigned sum = 0;
    for (int y = 111; y <= 163; ++y)
        for (int x = 0; x < 50; ++x)
            sum = sum * 31 + static_cast<unsigned>(getpixel(sheets.gui_sheet, x, y));
    return sum;
}

} // namespace

TEST(SchemeMenu, TriesColoursOutAndWearsThemAtOkay)
{
    Session session(draw_menu);
    const unsigned sheet_before = sheet_sum();
    open_entry(session, SCHEME_ENTRY, MENU_SCHEME);
    EXPECT_TRUE(looks_like(session, "scheme_menu"));
    session.click(SWATCH_BACKGROUND);
    ASSERT_EQ(menus.menu_id, MENU_COLOR);
    EXPECT_EQ(gui.hidden[SWATCH_BACKGROUND], 1);
    session.click(9);
    session.click_at(310, 20, RIGHT_BUTTON);
    ASSERT_EQ(menus.menu_id, MENU_SCHEME);
    EXPECT_EQ(gui.hidden[SWATCH_BACKGROUND], 0);
    gui.colour[SWATCH_BACKGROUND] = 0x203060;
    gui.colour[SWATCH_TEXT_ALT] = 0x80ff41;
    session.click(SWATCH_BACKGROUND + 2, RIGHT_BUTTON);
    EXPECT_NE(sheet_sum(), sheet_before) << "the sheet follows the swatches";
    EXPECT_EQ(menu_scheme.scheme_background, scheme_default[SCHEME_BACKGROUND]) << "the screens don't";
    EXPECT_TRUE(looks_like(session, "scheme_menu_edited"));
    session.click(SCHEME_CANCEL);
    EXPECT_EQ(menu_scheme.scheme, scheme_default);
    EXPECT_EQ(sheet_sum(), sheet_before);
    open_entry(session, SCHEME_ENTRY, MENU_SCHEME);
    gui.colour[SWATCH_BACKGROUND] = 0x203060;
    gui.colour[SWATCH_TEXT_ALT] = 0x80ff41;
    session.click(SCHEME_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(menu_scheme.scheme_background, 0x203060);
    EXPECT_EQ(text_colours[SET_FOLDER][0], 0x403f10) << "set 43 is darkened from set 38";
}

TEST(SchemeMenu, KeepsASchemeAsAFile)
{
    Session session(draw_menu);
    open_entry(session, SCHEME_ENTRY, MENU_SCHEME);
    gui.colour[SWATCH_BACKGROUND] = 0x203060;
    session.click(SCHEME_SAVE);
    ASSERT_EQ(menus.menu_id, MENU_BROWSER);
    session.type("MINE");
    session.key(KEY_ENTER);
    ASSERT_EQ(menus.menu_id, MENU_SCHEME);
    session.click(SWATCH_BACKGROUND, RIGHT_BUTTON);
    session.click(SCHEME_LOAD);
    session.type("NONE");
    session.key(KEY_ENTER);
    ASSERT_EQ(menus.menu_id, MENU_SCHEME);
    EXPECT_EQ(gui.colour[SWATCH_BACKGROUND], scheme_default[SCHEME_BACKGROUND]) << "no such file";
    session.click(SCHEME_LOAD);
    for (int i = 0; i < 4; ++i)
        session.key(KEY_BACKSPACE);
    session.type("MINE");
    session.key(KEY_ENTER);
    EXPECT_EQ(gui.colour[SWATCH_BACKGROUND], 0x203060);
    EXPECT_EQ(gui.x[SWATCH_BACKGROUND] - gui.x[0], 98) << "the window stands where it was";
    session.click(SCHEME_CANCEL);
    EXPECT_EQ(menu_scheme.scheme, scheme_default) << "also after a file was read";
}

} // namespace kelu
