// SPDX-License-Identifier: MIT
// Looking and moving: zoom, quick pan, frame jump, zoom preview, measurement, inspector and alpha preview.
#include "draw/tips.h"
#include "runtime/measure.h"
#include "runtime/shows.h"
#include "support/frames.h"
#include "support/screen_session.h"
#include <cstdlib>

namespace kelu {

using namespace test;

namespace {

constexpr int fade_in = 60; ///< frames until the picture after the start is no longer dark
enum { CENTER_ENTRY = 6, PREVIEW_WINDOW = 115 };

/// A frame of tiles of 10 x 10 in colours of their own, with dots that show single pixels.
void paint_tiles(int w, int h)
{
    replace_frame(w, h, 0);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const int tile = (x / 10 * 37 % 200 + 40) << 16 | (y / 10 * 53 % 200 + 40) << 8 | 0x60;
            row(store.frame_bitmap, y)[x] = x % 10 == 5 && y % 10 == 5 ? 0xffffff : tile;
        }
    }
}

int half_view(int logical, int level) { return ((logical + (1 << (level - 1)) - 1) >> (level - 1)) / 2; }

/// True when the pan is where the frame ends the movement.
bool at_limit(int pan, int half, int frame) { return pan == -half || pan == frame - half; }

/// One level in or out; the frame pixel under the pointer stays where the frame's edge doesn't hold the view, but for
/// what integer centres cost: a pixel, and two of the seven and a half rows of the last level.
void expect_pixel_kept(Session& session, bool in, bool by_wheel)
{
    const int x = view.frame_mouse_x, y = view.frame_mouse_y, level = view.zoom;
    if (by_wheel) {
        session.wheel(in ? 1 : -1);
        session.frame(3);
    } else {
        session.key(in ? KEY_PLUS_PAD : KEY_MINUS_PAD);
    }
    ASSERT_EQ(view.zoom, level + (in ? 1 : -1));
    const int w = store.frame_bitmap.width(), h = store.frame_bitmap.height();
    EXPECT_TRUE(std::abs(view.frame_mouse_x - x) <= 1 || at_limit(view.pan_x, half_view(logical_w, view.zoom), w))
        << "x " << x << " became " << view.frame_mouse_x << " in level " << view.zoom;
    const int lost_rows = std::max(level, int(view.zoom)) == max_zoom ? 2 : 1;
    EXPECT_TRUE(std::abs(view.frame_mouse_y - y) <= lost_rows ||
                at_limit(view.pan_y, half_view(logical_h, view.zoom), h))
        << "y " << y << " became " << view.frame_mouse_y << " in level " << view.zoom;
}

} // namespace

TEST(Zoom, KeepsThePixelUnderThePointer)
{
    Session session(plain_home);
    session.key(KEY_BACKSPACE);
    struct Place {
        int w, h, x, y;
    };
    for (const Place& at : {Place{1000, 700, 96, 64},
                            {1000, 700, 313, 233},
                            {320, 240, 0, 0},
                            {320, 240, 319, 239},
                            {100, 80, 160, 118},
                            {40, 40, 30, 200}}) {
        SCOPED_TRACE(std::to_string(at.w) + " at " + std::to_string(at.x));
        paint_tiles(at.w, at.h);
        session.key(KEY_5_PAD);
        session.move(at.x, at.y);
        for (int i = 0; i < 10; ++i)
            expect_pixel_kept(session, i < 5, at.w == 1000 || i % 2 == 0);
    }
    paint_tiles(1000, 700);
    session.key(KEY_5_PAD);
    session.move(96, 64);
    const int x = view.frame_mouse_x, y = view.frame_mouse_y;
    for (const char* name : {"zoom_2", "zoom_3", "zoom_4", "zoom_5", "zoom_6"}) {
        session.wheel(1);
        session.frame(3);
        EXPECT_EQ(view.frame_mouse_x, x);
        EXPECT_EQ(view.frame_mouse_y, y);
        EXPECT_TRUE(matches_golden(session.picture(), name));
    }
    paint_tiles(100, 80);
    session.key(KEY_5_PAD);
    session.move(160, 118);
    session.wheel(1);
    session.frame(3);
    EXPECT_TRUE(matches_golden(session.picture(), "zoom_small_frame"));
}

TEST(QuickPan, GoesWhereThePointerIsAtTheRelease)
{
    Session session(plain_home);
    session.hold_key(KEY_0_PAD);
    EXPECT_EQ(menus.status_message, TIP_TOO_SMALL_TO_PAN);
    session.release_key(KEY_0_PAD);
    paint_tiles(900, 654);
    view.zoom = 2;
    session.hold_key(KEY_0_PAD);
    session.move(110, 60);
    session.frame(fade_in);
    EXPECT_TRUE(matches_golden(session.picture(), "quick_pan"));
    session.release_key(KEY_0_PAD);
    EXPECT_EQ(view.pan_x, 300 - 80) << "three frame pixels for one of the picture, less half a view";
    EXPECT_EQ(view.pan_y, 150 - 60);
    paint_tiles(1000, 10);
    session.click(HOME_FRAME);
    session.hold_key(KEY_0_PAD);
    session.move(310, 120);
    session.release_key(KEY_0_PAD);
    EXPECT_EQ(menus.menu_id, MENU_FRAME) << "a column stays open meanwhile";
    EXPECT_EQ(view.pan_x, 1000 - 80) << "held where half the view is left";
    session.click(CENTER_ENTRY);
    EXPECT_EQ(view.pan_x, 500 - 160);
}

TEST(FrameJump, GoesToTheFrameUnderThePointer)
{
    Session session(plain_home);
    make_frames(30);
    session.move(10 + 43 * 4 + 20, 12 + 43 * 2 + 20);
    session.key(KEY_BACKSLASH);
    EXPECT_EQ(store.current_frame, 0) << "a tap goes nowhere";
    session.hold_key(KEY_BACKSLASH);
    session.press(); // the pressed frame takes the middle
    session.release();
    session.wheel(-1); // and a row on
    session.frame(2);
    EXPECT_TRUE(matches_golden(session.picture(), "frame_jump"));
    session.frame(30);
    session.release_key(KEY_BACKSLASH);
    EXPECT_EQ(store.current_frame, 9);
    view.onion_on = 1;
    session.move(10 + 43 * 6 + 20, 12 + 43 * 2 + 20); // three to the right: frame 12
    session.hold_key(KEY_BACKSLASH);
    session.frame(30);
    session.release_key(KEY_BACKSLASH);
    ASSERT_EQ(store.current_frame, 12);
    EXPECT_EQ(row(store.onion_bitmap, 100)[100] & 0xffffff, frame_color(11));
    session.move(10 + 20, 12 + 20); // the first cell: 17 before the base, which is no frame
    session.hold_key(KEY_BACKSLASH);
    session.move(10 + 43 * 3 + 20, 12 + 43 * 4 + 20); // 14 on: frame 26
    session.frame(30);
    session.wheel(-1); // the same cell is frame 33 now, which there isn't
    session.frame(3);
    session.release_key(KEY_BACKSLASH);
    EXPECT_EQ(store.current_frame, 12) << "an emptied cell leads nowhere";
    EXPECT_EQ(view.onion_on, 1);
    session.key(KEY_O);
    EXPECT_EQ(view.onion_on, 0);
}

TEST(ZoomPreview, StandsOnTheDrawingMenuAlone)
{
    Session session(plain_home);
    preferences.zoom_preview_on = 1;
    paint_tiles(300, 200);
    session.move(200, 90);
    session.wheel(1);
    session.wheel(1);
    session.frame(30);
    EXPECT_TRUE(matches_golden(session.picture(), "zoom_preview"));
    session.click(PREVIEW_WINDOW + 1); // taken by its title, put down by the next click
    session.move(200, 60);
    session.click_at(200, 60);
    EXPECT_EQ(menus.window_pos[WINDOW_ZOOM_PREVIEW].x, gui.x[PREVIEW_WINDOW]);
    EXPECT_GT(gui.x[PREVIEW_WINDOW], 100);
    session.click(HOME_FRAME);
    EXPECT_EQ(gui.active[PREVIEW_WINDOW], 0);
    session.click(CENTER_ENTRY);
    session.frame(2);
    EXPECT_EQ(gui.active[PREVIEW_WINDOW], 0) << "at zoom 1 there is nothing to preview";
}

TEST(Reading, MeasuresFromPressToPress)
{
    Session session(plain_home);
    paint_tiles(320, 240);
    session.move(100, 80);
    session.frame(fade_in);
    session.key(KEY_F12);
    session.move(150, 60);
    EXPECT_TRUE(matches_golden(session.picture(), "measurement"));
    session.key(KEY_F12);
    view.pan_x = -50;
    session.move(20, 80);
    session.key(KEY_F12);
    EXPECT_EQ(measure.measure_state, 0) << "beside the frame there is nothing to measure";
    // A tool's distance: lines and word, and the tool's overlay stays.
    view.pan_x = 0;
    measure = {.measure_x = 40, .measure_y = 50, .measure_state = 0, .measure_is_distance = 1};
    session.move(300, 190);
    EXPECT_TRUE(matches_golden(session.picture(), "tool_distance"));
    measure.measure_is_distance = 0;
    session.move(42, 20);
    EXPECT_TRUE(matches_golden(session.picture(), "tool_size"));
}

TEST(Pointer, ShowsTheRimOfTheTipFromInsideOrOutside)
{
    Session session(plain_home);
    paint_tiles(300, 200);
    session.move(150, 90);
    session.wheel(1);
    session.frame(fade_in);
    for (const auto& [choice, name] : {std::pair{1, "pointer_inline"}, {2, "pointer_outline"}}) {
        preferences.cursor_tip = choice;
        set_brush_tip(13);
        something_shows();
        session.frame(3);
        EXPECT_TRUE(matches_golden(session.picture(), name));
    }
}

TEST(Reading, InspectsThePixelUnderThePointer)
{
    Session session(plain_home);
    paint_tiles(200, 200);
    session.key(KEY_F11);
    session.move(100, 80);
    session.frame(fade_in);
    EXPECT_TRUE(matches_golden(session.picture(), "inspector"));
    session.move(310, 190);
    EXPECT_TRUE(matches_golden(session.picture(), "inspector_outside"));
    session.key(KEY_F11);
    session.move(100, 80);
    EXPECT_EQ(row(session.picture(), 84)[107], row(store.frame_bitmap, 84)[107]) << "off again";
}

TEST(AlphaPreview, ShowsTheAlphaAndLetsNothingNearTheFrame)
{
    Session session(plain_home);
    make_frames(3);
    paint_tiles(200, 150);
    for (int x = 0; x < 200; ++x)
        vline(store.alpha_bitmap, x, 0, 149, x * 0x010101);
    const Bitmap frame = store.frame_bitmap.copy();
    session.move(5, 160);
    session.hold_key(KEY_SLASH);
    session.frame(30);
    EXPECT_TRUE(matches_golden(session.picture(), "alpha_preview"));
    session.key(KEY_X);
    session.release_key(KEY_SLASH);
    ASSERT_EQ(store.frame_bitmap.width(), 200);
    for (int y = 0; y < 150; ++y)
        ASSERT_TRUE(std::equal(row(frame, y), row(frame, y) + 200, row(store.frame_bitmap, y)));
    session.key(KEY_PGDN);
    EXPECT_EQ(store.current_frame, 1) << "the lock has gone";
}

} // namespace kelu
