// SPDX-License-Identifier: MIT
// Files from outside: pictures behind the last frame, a workspace over a question, and what can't be opened.
#include "imagefile/png.h"
#include "platform/dropped_files.h"
#include "runtime/opened_files.h"
#include "support/screen_session.h"
#include <filesystem>

namespace kelu {

using namespace test;

namespace {

constexpr int red = 0xff0000, blue = 0x0000ff;

std::string picture_of(const Session& session, const std::string& name, int w, int h, int color)
{
    const std::string path = session.folder() + "/" + name;
    save_png(path.c_str(), Bitmap(w, h, color));
    return path;
}

TEST(OpenedFiles, BecomeFramesBehindTheLastOne)
{
    Session session;
    store.frame_bitmap = Bitmap(320, 240, 0x123456);
    opened_files.waiting = {picture_of(session, "a.png", 40, 30, red), session.folder() + "/config.def",
                            picture_of(session, "b.png", 50, 60, blue)};
    EXPECT_TRUE(session.frames_until([] { return store.current_frame == 1; }));
    EXPECT_EQ(store.frame_count, 3);
    EXPECT_EQ(store.frame_bitmap.width(), 40);
    EXPECT_EQ(row(store.frame_bitmap, 5)[5], red);
    // The frame that was open is kept, and the second picture lies behind the first.
    session.key(KEY_PGDN);
    EXPECT_TRUE(session.frames_until([] { return store.frame_bitmap.height() == 60; }));
    EXPECT_EQ(row(store.frame_bitmap, 59)[49], blue);
    session.key(KEY_HOME);
    EXPECT_TRUE(session.frames_until([] { return store.current_frame == 0; }));
    EXPECT_EQ(row(store.frame_bitmap, 9)[9], 0x123456);
    EXPECT_NE(session.log().find("[ ERROR ] : Couldn't open file! Name = " + session.folder() + "/config.def"),
              std::string::npos);

    // A drop does the same.
    platform::add_dropped_files({picture_of(session, "c.png", 9, 7, red)});
    EXPECT_TRUE(session.frames_until([] { return store.current_frame == 3; }));
    EXPECT_EQ(store.frame_bitmap.width(), 9);
    platform::add_dropped_files({picture_of(session, "dot.png", 1, 1, red)});
    session.frame(20);
    EXPECT_EQ(store.frame_count, 4);
}

TEST(OpenedFiles, StopAtAFullWorkspace)
{
    Session session;
    opened_files.waiting.assign(101, picture_of(session, "a.png", 4, 3, blue));
    ASSERT_TRUE(session.frames_until([] { return menus.menu_id == MENU_DIALOG; }));
    EXPECT_EQ(store.frame_count, max_frames);
    session.click(DIALOG_OKAY);
    EXPECT_TRUE(session.frames_until([] { return store.current_frame == 1; })) << "told once";
    EXPECT_EQ(row(store.frame_bitmap, 2)[3], blue);
}

TEST(OpenedFiles, ReplaceTheWorkspaceWhenTheUserAgrees)
{
    enum { WORKSPC_ENTRY = 7, WORKSPACE_SAVE = 8 };
    Session session;
    opened_files.waiting = {picture_of(session, "a.png", 40, 30, red)};
    ASSERT_TRUE(session.frames_until([] { return store.current_frame == 1; }));
    open_entry(session, HOME_USER, WORKSPC_ENTRY, MENU_WORKSPACE);
    session.click(WORKSPACE_SAVE);
    choose_file(session, "kept");
    ASSERT_EQ(menus.menu_id, MENU_DRAW);
    std::string archive;
    for (const auto& entry : std::filesystem::directory_iterator(session.folder()))
        if (entry.path().filename().string().starts_with("k")) archive = entry.path().string();

    const std::string picture = picture_of(session, "b.png", 50, 60, blue);
    opened_files.waiting = {picture};
    ASSERT_TRUE(session.frames_until([] { return store.frame_count == 3; }));
    opened_files.waiting = {archive};
    ASSERT_TRUE(session.frames_until([] { return menus.menu_id == MENU_DIALOG; }));
    session.click(DIALOG_CANCEL);
    EXPECT_EQ(store.frame_count, 3);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    // A picture behind the workspace goes into that one.
    opened_files.waiting = {archive, picture};
    ASSERT_TRUE(session.frames_until([] { return menus.menu_id == MENU_DIALOG; }));
    session.click(DIALOG_OKAY);
    EXPECT_TRUE(session.frames_until([] { return store.current_frame == 2; }));
    EXPECT_EQ(store.frame_count, 3);
    EXPECT_EQ(row(store.frame_bitmap, 59)[49], blue);
    session.key(KEY_HOME);
    session.key(KEY_PGDN);
    EXPECT_EQ(row(store.frame_bitmap, 9)[9], red);
}

} // namespace
} // namespace kelu
