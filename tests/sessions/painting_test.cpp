// SPDX-License-Identifier: MIT
// A stroke by mouse, and the whole life of the program in its log.
#include "base/version.h"
#include "draw/operation.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

int painted_pixels()
{
    int count = 0;
    for (int y = 0; y < store.frame_bitmap.height(); ++y) {
        for (int x = 0; x < store.frame_bitmap.width(); ++x)
            count += frame_pixel(x, y) != 0 ? 1 : 0;
    }
    return count;
}

} // namespace

TEST(Painting, AStrokeFollowsTheMouseWithoutGaps)
{
    Session session;
    toolbox.brush_tip = no_tip;
    toolbox.brush_color = 0x20c040;
    session.drag(40, 40, 80, 60, 2);
    EXPECT_EQ(frame_pixel(40, 40), 0x20c040);
    EXPECT_EQ(frame_pixel(80, 60), 0x20c040);
    EXPECT_EQ(painted_pixels(), 41) << "a line of 41 pixels, each once";
    session.click_at(10, 10);
    EXPECT_EQ(frame_pixel(10, 10), 0x20c040) << "a click leaves one stamp";
    EXPECT_EQ(painted_pixels(), 42);
}

TEST(Life, RapidExitEndsTheProgramAndItsLog)
{
    Session session;
    session.key(KEY_Q, {KEY_LSHIFT});
    EXPECT_TRUE(session.frames_until([&] { return session.ended(); }));
    EXPECT_EQ(session.exit_code(), 0);
    const std::string log = session.log();
    EXPECT_TRUE(log.starts_with("[ INIT ] : Old resources swept up\n[ INIT ] : Kelu v" + std::string(version()) +
                                " now loading\n"));
    EXPECT_NE(log.find("[ INIT ] : Requesting 640x480 windowed resolution\n[ INIT ] : Resolution accepted\n"),
              std::string::npos);
    EXPECT_TRUE(log.ends_with("[ END ] : Closing font renderer hooks.\n[ END ] : Closing log.\n"));
}

} // namespace kelu
