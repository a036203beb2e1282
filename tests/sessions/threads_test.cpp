// The program with its ticks on a real thread: strokes, menus and the way out, for ThreadSanitizer to watch.
#include "draw/operation.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "support/session.h"
#include <gtest/gtest.h>

namespace kelu {

using test::Session;

TEST(Threads, PaintWhileTheTimersTick)
{
    Session session(nullptr, {}, test::Ticks::real_thread);
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
        session.click_at(corner, 4, test::RIGHT_BUTTON);
        session.frame(10);
    }
    EXPECT_TRUE(session.finish());
    EXPECT_EQ(session.exit_code(), 0);
}

} // namespace kelu
