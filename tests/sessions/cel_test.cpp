// SPDX-License-Identifier: MIT
// Cels by mouse: grabbing, dragging, anchoring, and the tool that lifts a piece of the frame.
#include "draw/ink_rows.h"
#include "draw/touched.h"
#include "screens/commands.h"
#include "support/screen_session.h"
#include "tools/cel_grab.h"
#include "tools/cel_paste.h"

namespace kelu {

using namespace test;

namespace {

void paint_block(int left, int top, int right, int bottom, int color)
{
    rectfill(store.frame_bitmap, left, top, right, bottom, color);
    touch_area(left, top, right, bottom);
}

/// Gives a cel of w x h pixels of one colour.
void give_cel(int w, int h, int color)
{
    store.cel_source_bitmap = Bitmap(w, h, color);
    store.cel_bitmap = Bitmap(w, h, color);
}

enum { GET = 2, PASTE = 4, STRETCH = 8 };

class Cels : public testing::Test {
protected:
    Cels() { toolbox.ink_slots[0] = INK_OPAQUE; }
    void open(int entry)
    {
        session.click(HOME_CEL);
        session.click(entry);
    }
    Session session;
};

} // namespace

TEST_F(Cels, GrabDragAndAnchor)
{
    paint_block(10, 10, 19, 19, 0x20c040);
    paint_block(12, 12, 12, 12, 0x000000); // the mask colour: left out of the paste
    paint_block(50, 30, 59, 39, 0xff0000);
    open(GET);
    session.click_at(19, 10);
    EXPECT_EQ(cel_work.grab_x, 19);
    EXPECT_EQ(menus.status_message, TIP_GRAB_SECOND);
    session.click_at(10, 19);
    EXPECT_EQ(cel_work.grab_x, no_grab);
    EXPECT_EQ(store.cel_bitmap.width(), 10);
    EXPECT_EQ(cel.cel_origin_y, 10);
    open(PASTE);
    session.click_at(100, 100); // beside the cel: nothing
    session.click_at(15, 15);   // takes it
    session.move(55, 35);
    EXPECT_EQ(frame_pixel(55, 35), 0xff0000) << "only the preview moves";
    session.click_at(55, 35); // drops it
    session.click_at(200, 100, RIGHT_BUTTON);
    EXPECT_EQ(frame_pixel(50, 30), 0x20c040);
    EXPECT_EQ(frame_pixel(59, 39), 0x20c040);
    EXPECT_EQ(frame_pixel(52, 32), 0xff0000);
    EXPECT_EQ(cel.cel_origin_x, 50);
    EXPECT_EQ(cel_work.cel_place.mode, CEL_NONE);
}

TEST_F(Cels, OffscreenWindowBringsTheCelOrGoesToIt)
{
    enum { JUMP = 2, BRING };
    give_cel(20, 10, 0x20c040);
    cel.cel_origin_x = 3000;
    cel.cel_origin_y = 0;
    open(PASTE);
    EXPECT_EQ(menus.menu_id, MENU_DIALOG);
    session.click(BRING);
    session.frame(3);
    EXPECT_EQ(cel_work.cel_place.x, view.view_center_x - 10);
    EXPECT_EQ(cel_work.cel_place.y, view.view_center_y - 5);
    EXPECT_EQ(cel_work.cel_in_view, 1);
    EXPECT_NE(menus.menu_id, MENU_DIALOG) << "the window goes when the cel is in view";
    session.click_at(20, 100, RIGHT_BUTTON);
    EXPECT_EQ(cel.cel_origin_x, view.view_center_x - 10);

    cel.cel_origin_x = 3000;
    session.key(KEY_TILDE);
    ASSERT_TRUE(session.frames_until([] { return menus.menu_id == MENU_DIALOG && gui.active[0] != 0; }));
    replace_frame(4000, 240, 0);
    session.click(JUMP);
    session.frame(3);
    EXPECT_EQ(cel_work.cel_in_view, 1);
    EXPECT_EQ(gui.active[0], 0) << "no menu in the middle of the operation";
    EXPECT_EQ(menus.status_message, TIP_CEL_REPOSITION);
    session.click_at(20, 100, RIGHT_BUTTON);
    EXPECT_EQ(gui.active[0], 1) << "it is back";
}

TEST_F(Cels, StretchIsSizedMovedAndAnchored)
{
    give_cel(2, 2, 0x20c040);
    open(STRETCH);
    session.click_at(40, 40);
    session.click_at(60, 50); // the size stands
    EXPECT_EQ(menus.status_message, TIP_STRETCH_OR_MOVE);
    session.click_at(200, 150); // outside: another size
    EXPECT_EQ(menus.status_message, TIP_STRETCH_SIZE);
    session.click_at(60, 50);
    session.click_at(50, 45); // inside: moves both corners
    session.click_at(150, 145);
    session.click_at(10, 100, RIGHT_BUTTON);
    EXPECT_EQ(frame_pixel(140, 140), 0x20c040);
    EXPECT_EQ(frame_pixel(159, 149), 0x20c040);
    EXPECT_EQ(frame_pixel(160, 149), 0x000000);
    EXPECT_EQ(frame_pixel(50, 45), 0x000000);
}

/// The tool that lifts a piece of the frame, which leaves the mask colour behind.
class MoveTool : public Cels {
protected:
    MoveTool()
    {
        toolbox.tool_slots[0] = TOOL_MOVE;
        toolbox.mask_color = 0x0000ff;
        give_cel(5, 7, 0x123456);
        cel.cel_origin_x = 77;
        paint_block(20, 20, 29, 29, 0x20c040);
    }
    void lift()
    {
        session.click_at(20, 20);
        session.click_at(29, 29);
        EXPECT_EQ(frame_pixel(25, 25), 0x0000ff) << "the gap has the mask colour";
    }
};

TEST_F(MoveTool, LiftsAPieceAndBringsTheUsersCelBack)
{
    lift();
    session.click_at(25, 25);
    session.click_at(65, 35, RIGHT_BUTTON); // drops and anchors
    EXPECT_EQ(frame_pixel(60, 30), 0x20c040);
    EXPECT_EQ(frame_pixel(69, 39), 0x20c040);
    EXPECT_EQ(store.cel_source_bitmap.height(), 7);
    EXPECT_EQ(cel.cel_origin_x, 77);
    session.key(KEY_U);
    EXPECT_EQ(frame_pixel(60, 30), 0x000000);
    EXPECT_EQ(frame_pixel(25, 25), 0x20c040) << "one step takes the whole move back";
}

TEST_F(MoveTool, APieceThatIsCarriedToAnotherFrameLeavesNoGapAndCanBeUndoneThere)
{
    insert_blank_frame();
    lift();
    session.key(KEY_PGDN);
    ASSERT_EQ(store.current_frame, 1);
    session.click_at(25, 25);
    session.click_at(65, 35, RIGHT_BUTTON);
    EXPECT_EQ(frame_pixel(60, 30), 0x20c040);
    session.key(KEY_U);
    EXPECT_EQ(frame_pixel(60, 30), 0x000000);
    session.key(KEY_U, {KEY_LSHIFT});
    EXPECT_EQ(frame_pixel(60, 30), 0x20c040);
    session.key(KEY_DEL);
    ASSERT_EQ(store.current_frame, 0);
    EXPECT_EQ(frame_pixel(25, 25), 0x20c040) << "the frame that it came from is whole";
}

TEST(PastedPicture, IsPastedOnceAndNeverMasked)
{
    Session session([] {
        give_cel(3, 3, 0x123456);
        Bitmap picture(4, 4, 0x000000);
        row(picture, 0)[0] = 0x20c040;
        paste_picture(std::move(picture));
        idle();
    });
    toolbox.ink_slots[0] = INK_OPAQUE;
    paint_block(0, 0, 9, 9, 0xff0000);
    session.click_at(200, 100, RIGHT_BUTTON);
    EXPECT_EQ(frame_pixel(0, 0), 0x20c040);
    EXPECT_EQ(frame_pixel(3, 3), 0x000000) << "black is pasted, although it is the mask colour";
    EXPECT_EQ(frame_pixel(4, 4), 0xff0000);
    EXPECT_EQ(store.cel_source_bitmap.width(), 3);
}

} // namespace kelu
