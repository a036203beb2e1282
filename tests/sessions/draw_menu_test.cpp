// The home screen as a person uses it: buttons, colours, columns, dialogs, hiding, dragging, keys.
#include "draw/operation.h"
#include "gui/kinds.h"
#include "gui/menus.h"
#include "gui/slots.h"
#include "gui/tooltips.h"
#include "runtime/grid.h"
#include "runtime/hotkeys.h"
#include "runtime/run_state.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "screens/actions.h"
#include "screens/draw_menu.h"
#include "support/golden.h"
#include "support/session.h"
#include <gtest/gtest.h>

namespace kelu {

using test::RIGHT_BUTTON;
using test::Session;

namespace {

enum {
    HOME = 1,
    FRAME = 2,
    UNDO = 3,
    TOOL_0 = 4,
    INK_0 = 10,
    PIC = 16,
    CEL = 17,
    USER = 18,
    MASK = 19,
    BRUSH = 20,
    FAVORITE_0 = 23
};
enum { CLONE = 2, INSERT = 3, DELETE_ENTRY = 5, CENTER = 6, BACK = 9, CLEAR = 2, QUIT = 9 };
enum { DIALOG_OKAY = 2, DIALOG_CANCEL = 3 };

int frame_pixel(int x, int y) { return row(store.frame_bitmap, y)[x]; }

/// The same colours at every run.
void fix_colors()
{
    for (int i = 0; i < 10; ++i)
        toolbox.favorites[static_cast<std::size_t>(i)] = 0x101010 * (i + 1);
}

} // namespace

TEST(DrawMenu, ShowsItsStrip)
{
    Session session([] {
        fix_colors();
        draw_menu();
    });
    session.move(10, 60);
    session.frame(200);
    EXPECT_TRUE(test::matches_golden(session.picture(), "draw_menu"));
}

TEST(DrawMenu, SelectsToolsInksAndColors)
{
    Session session;
    session.click(TOOL_0 + 4);
    EXPECT_EQ(toolbox.tool_slot, 4);
    EXPECT_EQ(gui.kind[TOOL_0 + 4], KIND_BUTTON_LIT);
    EXPECT_EQ(gui.kind[TOOL_0], KIND_BUTTON);
    session.click(INK_0 + 5);
    EXPECT_EQ(toolbox.ink_slot, 5);
    session.click(FAVORITE_0 + 7);
    EXPECT_EQ(toolbox.brush_color, toolbox.favorites[7]);
    toolbox.mask_color = 0x336699;
    session.click(MASK);
    EXPECT_EQ(toolbox.brush_color, 0x336699);
    EXPECT_EQ(toolbox.mask_color, 0x336699);
    EXPECT_EQ(frame_pixel(10, 10), 0) << "clicks on the strip draw nothing";
}

TEST(DrawMenu, UndoButtonWorksBothWays)
{
    Session session;
    toolbox.brush_tip = no_tip;
    session.click_at(50, 50);
    EXPECT_EQ(frame_pixel(50, 50), 0xffffff);
    session.click(UNDO);
    EXPECT_EQ(frame_pixel(50, 50), 0);
    session.click(UNDO, RIGHT_BUTTON);
    EXPECT_EQ(frame_pixel(50, 50), 0xffffff);
}

TEST(DrawMenu, HidesOnARightClickAndLetsDrawBelow)
{
    Session session;
    toolbox.brush_tip = no_tip;
    session.click_at(100, 100, RIGHT_BUTTON);
    EXPECT_EQ(gui.hidden[0], 1);
    EXPECT_EQ(frame_pixel(100, 100), 0);
    session.click_at(100, 220);
    EXPECT_EQ(frame_pixel(100, 220), 0xffffff) << "a hidden strip takes no clicks";
    session.click_at(100, 220, RIGHT_BUTTON);
    EXPECT_EQ(gui.hidden[0], 0);
    session.key(KEY_BACKSPACE);
    EXPECT_EQ(gui.hidden[0], 1);
}

TEST(DrawMenu, FollowsADragAndStaysThere)
{
    Session session;
    session.click(HOME);
    session.move(20, 50);
    session.press();
    session.release();
    EXPECT_EQ(menus.window_pos[WINDOW_DRAW].x, 0) << "a window as wide as the screen moves up and down only";
    EXPECT_LT(menus.window_pos[WINDOW_DRAW].y, 60);
    EXPECT_EQ(gui.y[TOOL_0], gui.y[0] + 12);
    session.click(FRAME);
    EXPECT_EQ(menus.menu_id, MENU_FRAME);
    session.click(BACK);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(gui.y[0], menus.window_pos[WINDOW_DRAW].y);
}

TEST(DrawMenu, ColumnsOpenAndRunTheirEntries)
{
    Session session([] {
        fix_colors();
        draw_menu();
    });
    session.click(PIC);
    EXPECT_EQ(menus.menu_id, MENU_PIC);
    session.move(5, 100);
    session.frame(200);
    EXPECT_TRUE(test::matches_golden(session.picture(), "pic_column"));
    toolbox.mask_color = 0x224466;
    session.click(CLEAR);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(frame_pixel(3, 3), 0x224466);
    view.zoom = 3;
    session.click(FRAME);
    session.click(CENTER);
    EXPECT_EQ(view.zoom, 1);
    EXPECT_EQ(view.pan_x, 0);
}

TEST(DrawMenu, FramesComeAndGoByTheColumn)
{
    Session session([] {
        fix_colors();
        draw_menu();
    });
    toolbox.brush_tip = no_tip;
    session.click_at(50, 50);
    session.click(FRAME);
    session.click(DELETE_ENTRY);
    EXPECT_EQ(menus.menu_id, MENU_DIALOG);
    EXPECT_EQ(gui.active[DIALOG_CANCEL], 0) << "nothing to choose with one frame";
    session.move(5, 60);
    session.frame(200);
    EXPECT_TRUE(test::matches_golden(session.picture(), "dialog_single"));
    session.click(DIALOG_OKAY);
    EXPECT_EQ(store.frame_count, 1);

    session.click(FRAME);
    session.click(CLONE);
    EXPECT_EQ(store.frame_count, 2);
    EXPECT_EQ(menus.status_message, TIP_CLONED);
    session.click(FRAME);
    session.click(INSERT);
    EXPECT_EQ(store.frame_count, 3);
    set_default_hotkeys();
    session.key(KEY_PGDN);
    EXPECT_EQ(store.current_frame, 1);
    EXPECT_EQ(frame_pixel(50, 50), 0) << "the blank frame stands behind the first";
    session.key(KEY_PGDN);
    EXPECT_EQ(frame_pixel(50, 50), 0xffffff) << "and the clone behind it";
    session.key(KEY_PGDN);
    EXPECT_EQ(store.current_frame, 0);
    session.click(FRAME);
    session.click(DELETE_ENTRY);
    session.click(DIALOG_CANCEL);
    EXPECT_EQ(store.frame_count, 3);
    session.click(FRAME);
    session.click(DELETE_ENTRY);
    session.click(DIALOG_OKAY);
    EXPECT_EQ(store.frame_count, 2);
    EXPECT_EQ(frame_pixel(50, 50), 0);
}

TEST(DrawMenu, QuitAsksAndCancelStays)
{
    Session session;
    session.click(USER);
    session.click(QUIT);
    EXPECT_EQ(menus.menu_id, MENU_DIALOG);
    session.click(DIALOG_CANCEL);
    EXPECT_FALSE(session.ended());
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    session.click(USER);
    session.click(QUIT);
    session.click(DIALOG_OKAY);
    EXPECT_TRUE(session.frames_until([&] { return session.ended(); }));
}

TEST(Actions, GridZoomPansAndDroppers)
{
    Session session;
    set_default_hotkeys();
    grid.grid_w = 1000;
    session.key(KEY_ASTERISK);
    EXPECT_EQ(grid.grid_w, 2) << "wonky settings are put right first";
    EXPECT_EQ(grid.grid_on, 1);
    EXPECT_EQ(menus.status_message, TIP_GRID_ACTIVE);
    session.key(KEY_ASTERISK);
    session.move(160, 100);
    session.key(KEY_PLUS_PAD);
    EXPECT_EQ(view.zoom, 2);
    EXPECT_EQ(view.frame_mouse_x, 160) << "the pixel under the pointer stays";
    session.wheel(3);
    EXPECT_EQ(view.zoom, 3) << "any turn is one step";
    const int before = view.pan_x;
    session.hold_key(KEY_D);
    EXPECT_GT(view.pan_x, before);
    session.release_key(KEY_D);
    row(store.frame_bitmap, view.frame_mouse_y)[int(view.frame_mouse_x)] = 0xabcdef;
    session.key(KEY_F1);
    EXPECT_EQ(toolbox.brush_color, 0xabcdef);
    session.key(KEY_F2);
    EXPECT_EQ(toolbox.mask_color, 0xabcdef);
}

} // namespace kelu
