// SPDX-License-Identifier: MIT
// The screens that change the frame's geometry, walked by mouse and keys: resize, sprite sheet.
#include "draw/undo.h"
#include "gui/build.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

enum { RESIZE = 4, SHEET = 4 };
enum { ANCHOR_0 = 3, SCALE = 12, WIDTH = 15, HEIGHT = 16, RESIZE_OKAY = 19, PERCENT = 21 };
enum { SPRITE_W = 76, COLUMNS = 86, SHEET_OKAY = 93 };

void expect_frame(int w, int h)
{
    EXPECT_EQ(store.frame_bitmap.width(), w);
    EXPECT_EQ(store.frame_bitmap.height(), h);
    EXPECT_EQ(store.alpha_bitmap.width(), w);
    EXPECT_EQ(store.coverage_bitmap.height(), h);
}

} // namespace

TEST(FrameSize, ResizeScreenScalesAndPlacesTheFrame)
{
    Session session;
    replace_frame(300, 200, 0x123456);
    open_entry(session, HOME_FRAME, RESIZE, MENU_RESIZE);
    session.click(ANCHOR_0 + 7);
    session.click(SCALE);
    session.move(gui.x[PERCENT] + 60, gui.y[PERCENT] + 4);
    session.wheel(-1);
    EXPECT_TRUE(looks_like(session, "resize_menu", 20, 20)) << "95 per cent";
    retype(session, WIDTH, "1");
    session.click(RESIZE_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_RESIZE) << "a frame has two pixels a side";
    retype(session, WIDTH, "40");
    session.key(KEY_ENTER);
    EXPECT_EQ(gui_logic.gui_key_focus, HEIGHT);
    session.key(KEY_BACKSPACE);
    session.key(KEY_ENTER);
    expect_frame(40, 19);
    EXPECT_EQ(frame_pixel(39, 18), 0x123456);

    open_entry(session, HOME_FRAME, RESIZE, MENU_RESIZE);
    retype(session, HEIGHT, "23");
    session.click(RESIZE_OKAY);
    expect_frame(40, 23);
    EXPECT_EQ(frame_pixel(0, 22), 0) << "anchored at the top left";

    open_entry(session, HOME_FRAME, RESIZE, MENU_RESIZE);
    gui.scroll_value[PERCENT] = 0;
    session.frame(2);
    EXPECT_EQ(field_number(WIDTH), 0);
    replace_frame(3000, 200, 0);
    session.frame(2);
    EXPECT_EQ(gui.scroll_value[PERCENT], 100) << "another frame starts anew";
    gui.scroll_value[PERCENT] = 400;
    session.frame(2);
    EXPECT_EQ(field_number(WIDTH), 9999) << "what the field holds";
    EXPECT_EQ(field_number(HEIGHT), 800);
}

TEST(FrameSize, SheetScreenTakesItsNumbers)
{
    Session session;
    open_entry(session, HOME_PIC, SHEET, MENU_SHEET);
    retype(session, COLUMNS, "1");
    session.click(SHEET_OKAY);
    expect_frame(18, 137);
}

} // namespace kelu
