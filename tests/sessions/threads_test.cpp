// SPDX-License-Identifier: MIT
// The program with its ticks on a real thread: strokes, menus and the way out, for ThreadSanitizer to watch.
#include "draw/operation.h"
#include "support/frames.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

TEST(Threads, PaintWhileTheTimersTick)
{
    Session session(nullptr, {}, Ticks::real_thread);
    toolbox.brush_tip = no_tip;
    toolbox.brush_color = 0x20c040;
    for (int i = 0; i < 6; ++i) {
        session.drag(60, 60 + 10 * i, 160, 70 + 10 * i, 6);
        session.wheel(i % 2 == 0 ? 1 : -1);
        session.key(KEY_U);
        session.key(KEY_U, {KEY_LSHIFT});
    }
    for (const int corner : {4, 100, 200, 316}) { // over whatever menu lies there, with both buttons
        session.move(corner, 232);
        session.click_at(corner, 4, RIGHT_BUTTON);
        session.frame(10);
    }
    EXPECT_TRUE(session.finish());
}

TEST(Threads, PlayAndLookAroundWhileTheTimersTick)
{
    enum { FORWARD = 6, ALL = 4, OKAY = 6, PLAY_OKAY = 8 };
    Session session(nullptr, {}, Ticks::real_thread);
    make_frames(4);
    session.key(KEY_Z, {KEY_LSHIFT});
    session.click(ALL);
    session.wheel(1);
    session.click(OKAY);
    session.key(KEY_Z);
    EXPECT_TRUE(session.frames_until([] { return menus.menu_id == MENU_PLAYBACK; }));
    session.click(FORWARD);
    session.frame(60);
    session.click(PLAY_OKAY);
    EXPECT_EQ(row(store.frame_bitmap, 100)[100], frame_color(0));
    for (const int code : {KEY_F12, KEY_F11, KEY_SLASH, KEY_0_PAD, KEY_BACKSLASH, KEY_O, KEY_PLUS_PAD}) {
        session.move(60 + code, 90);
        session.hold_key(code);
        session.frame(5);
        session.release_key(code);
    }
    EXPECT_TRUE(session.finish());
}

} // namespace kelu
