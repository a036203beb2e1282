// SPDX-License-Identifier: MIT
// The home screen as a person uses it: buttons, colours, columns, dialogs, hiding, dragging, keys.
#include "draw/operation.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

TEST(DrawMenu, ClicksPaintAndUndo)
{
    Session session;
    toolbox.brush_tip = no_tip;
    session.click_at(50, 50);
    session.click(HOME_UNDO);
    EXPECT_EQ(frame_pixel(50, 50), 0);
    session.click(HOME_UNDO, RIGHT_BUTTON);
    EXPECT_EQ(frame_pixel(50, 50), 0xffffff);
    EXPECT_EQ(frame_pixel(10, 10), 0) << "clicks on the strip draw nothing";
}

TEST(DrawMenu, APressOnTheStripPaintsNothingWhereverItGoes)
{
    Session session;
    toolbox.brush_tip = no_tip;
    session.drag(gui.x[HOME_UNDO] + 4, gui.y[HOME_UNDO] + 4, 100, 100);
    EXPECT_EQ(frame_pixel(100, 100), 0);
    session.click_at(100, 100);
    EXPECT_EQ(frame_pixel(100, 100), 0xffffff) << "the next press paints again";
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

TEST(Actions, GridZoomPansAndDroppers)
{
    Session session;
    grid.grid_w = 1000;
    session.key(KEY_ASTERISK);
    EXPECT_EQ(grid.grid_w, 2) << "wonky settings are put right first";
    EXPECT_EQ(grid.grid_on, 1);
    EXPECT_EQ(menus.status_message, TIP_GRID_ACTIVE);
    session.key(KEY_ASTERISK);
    session.move(160, 100);
    session.wheel(3);
    EXPECT_EQ(view.zoom, 2) << "any turn is one step";
    const int before = view.pan_x;
    session.hold_key(KEY_D);
    EXPECT_GT(view.pan_x, before);
    session.release_key(KEY_D);
    row(store.frame_bitmap, view.frame_mouse_y)[int(view.frame_mouse_x)] = 0xabcdef;
    session.key(KEY_F1);
    EXPECT_EQ(toolbox.brush_color, 0xabcdef);
    session.key(KEY_F2);
    EXPECT_EQ(toolbox.mask_color, 0xabcdef);
    session.hold_key(KEY_O);
    EXPECT_EQ(menus.status_message, TIP_ONION_NEEDS_FRAMES);
    session.release_key(KEY_O);
    EXPECT_EQ(menus.status_message, TIP_NONE);
}

} // namespace kelu
