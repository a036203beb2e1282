// SPDX-License-Identifier: MIT
// The end of the program while its work can't be written: the user tries again, stays, or leaves without.
#include "gui/text.h"
#include "imagefile/tga.h"
#include "screens/draw_menu.h"
#include "support/screen_session.h"
#include <filesystem>

namespace kelu {
namespace {

using namespace test;

enum { FAILURE_WHAT = 122, FAILURE_TRY_AGAIN = 125, FAILURE_LEAVE, FAILURE_CANCEL };

class LeavingTest : public testing::Test {
protected:
    /// Makes way for no file of the workspace, in one step or by itself.
    void bar()
    {
        for (const char* name : {".next.list.kelu-new", ".current.000.kelu-new"})
            std::filesystem::create_directory(in_store(name));
    }
    void unbar()
    {
        for (const char* name : {".next.list.kelu-new", ".current.000.kelu-new"})
            std::filesystem::remove(in_store(name));
    }
    std::string in_store(const std::string& name) const { return session_.folder() + "/WORKSPACE/" + name; }
    void paint_and_leave()
    {
        session_.frame(3);
        bar();
        row(store.frame_bitmap, 5)[5] = 0x123456;
        run_state.exit_requested = 1;
        session_.frame(5);
    }
    bool asks() const { return menus.menu_id == MENU_DIALOG && gui.kind[FAILURE_LEAVE] != 0; }

    Session session_;
};

} // namespace

TEST_F(LeavingTest, CancelGoesBackToThePictureAndTryAgainEndsOnceTheWorkIsWritten)
{
    paint_and_leave();
    ASSERT_TRUE(asks());
    EXPECT_STREQ(gui.ptr[FAILURE_WHAT], "THE FRAME COULDN'T BE SAVED!");
    session_.click(FAILURE_TRY_AGAIN);
    session_.frame(5);
    ASSERT_TRUE(asks()) << "nothing has become better";
    session_.click(FAILURE_CANCEL);
    session_.frame(5);
    EXPECT_FALSE(session_.ended());
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(frame_pixel(5, 5), 0x123456);
    session_.drag(40, 40, 60, 40);
    EXPECT_NE(frame_pixel(50, 40), 0x000000) << "the picture can be painted on";
    run_state.exit_requested = 1;
    session_.frame(5);
    ASSERT_TRUE(asks());
    unbar();
    session_.click(FAILURE_TRY_AGAIN);
    EXPECT_TRUE(session_.finish());
    EXPECT_EQ(session_.exit_code(), 0);
    const Bitmap kept = read_tga(in_store("current.000"));
    ASSERT_TRUE(kept);
    EXPECT_EQ(row(kept, 5)[5] & 0xffffff, 0x123456);
}

TEST_F(LeavingTest, LeavingWithoutTheWorkSaysSoOnStderrAndByTheExitCode)
{
    paint_and_leave();
    ASSERT_TRUE(asks());
    testing::internal::CaptureStderr();
    session_.click(FAILURE_LEAVE);
    session_.frame(5);
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(session_.ended());
    EXPECT_EQ(session_.exit_code(), 1);
    EXPECT_NE(told.find("THE FRAME COULDN'T BE SAVED! "), std::string::npos) << told;
    EXPECT_NE(told.find("/WORKSPACE/current.000: "), std::string::npos) << told;
    unbar();
}

} // namespace kelu
