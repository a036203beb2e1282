// SPDX-License-Identifier: MIT
// The folder beside the executable, and the user's folder of an installation; the end from inside an operation.
#include "program/folders.h"
#include "program/leaving.h"

#include "../workspace/workspace_fixture.h"
#include "draw/touched.h"
#include "platform/places.h"
#include "support/environment.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

namespace fs = std::filesystem;

using test::EnvironmentWord;

TEST(Folders, FollowTheConventionsOfDesktops)
{
    using Word = std::optional<std::string>;
    for (const auto& [data, folder] : {std::pair{Word("/data/of mine"), "/data/of mine"},
                                       {std::nullopt, "/home/x/.local/share"},
                                       {"", "/home/x/.local/share"},
                                       {"relative", "/home/x/.local/share"}}) {
        const EnvironmentWord first("XDG_DATA_HOME", data), second("HOME", "/home/x");
        EXPECT_EQ(platform::user_data_folder(), folder);
    }
}

TEST(Folders, AreTheExecutablesOwnWhereArtLiesBesideItOrNowhere)
{
    const TemporaryFolder folder;
    const EnvironmentWord data("XDG_DATA_HOME", "/data");
    const std::string lib = (folder.path() / "lib/kelu").string(), share = (folder.path() / "share/kelu").string();
    fs::create_directories(lib);
    EXPECT_EQ(find_folders(lib).user, lib); // for a message about what is missing
    fs::create_directories(share + "/resource");
    EXPECT_EQ(find_folders(lib).user, "/data/kelu");
    EXPECT_EQ(find_folders(lib).art, share);
    fs::create_directories(lib + "/resource");
    EXPECT_EQ(find_folders(lib).user, lib);
    EXPECT_TRUE(find_folders(lib).art.empty());
}

TEST(Folders, OfAUserAreMadeWholeAndKeepWhatIsTheUsers)
{
    const TemporaryFolder folder;
    const Folders folders{.user = (folder.path() / "a/kelu").string(), .art = (folder.path() / "share").string()};
    fs::create_directories(folders.art + "/defaults/resource");
    fs::create_directories(folders.art + "/defaults/WORKSPACE");
    fs::create_directories(folders.art + "/fonts");
    folder.put("share/defaults/resource/user.def", "settings");
    folder.put("share/defaults/WORKSPACE/current.spa", "state");
    folder.put("share/fonts/system.ttf", "font");
    EXPECT_EQ(complete_user_folder(folders), "");
    for (const auto& [name, text] : {std::pair{"config.def", "3"},
                                     {"resource/user.def", "settings"},
                                     {"WORKSPACE/current.spa", "state"},
                                     {"fonts/system.ttf", "font"}})
        EXPECT_EQ(folder.text(std::string("a/kelu/") + name), text) << name;
    EXPECT_EQ(fs::status(folders.user).permissions() & fs::perms::all, fs::perms::owner_all);

    // What is missing comes back, and nothing else changes.
    fs::remove(folders.user + "/fonts/system.ttf");
    folder.put("a/kelu/fonts/system.ttf", "a font of mine");
    folder.put("a/kelu/config.def", "2");
    fs::remove(folders.user + "/resource/user.def");
    fs::remove(folders.user + "/WORKSPACE/current.spa");
    folder.put("a/kelu/WORKSPACE/current.000", "work");
    EXPECT_EQ(complete_user_folder(folders), "");
    EXPECT_EQ(folder.text("a/kelu/config.def"), "2");
    EXPECT_EQ(folder.text("a/kelu/fonts/system.ttf"), "a font of mine");
    EXPECT_EQ(folder.text("a/kelu/resource/user.def"), "settings");
    EXPECT_FALSE(fs::exists(folders.user + "/WORKSPACE/current.spa"));

    folder.put("file", "");
    const std::string trouble = complete_user_folder({.user = folder.path() / "file/kelu", .art = folders.art});
    EXPECT_NE(trouble.find("/file/kelu\n \nNot a directory"), std::string::npos) << trouble;
}

using LastWork = WorkspaceTest;

TEST_F(LastWork, HalfAnOperationIsTakenBackAndWhatWasBeforeIsWritten)
{
    for (const bool alpha : {false, true}) {
        make_frames(1);
        store.alpha_edit_mode = 0;
        const auto paint = [](int y, int color) {
            hline(store.frame_bitmap, 0, y, 7, color);
            touch_area(0, y, 7, y);
        };
        {
            const UndoableOperation whole;
            paint(1, 0x112233);
        }
        if (alpha) toggle_alpha_edit();
        {
            const UndoableOperation half;
            paint(1, 0x808080);
            paint(2, 0x808080);
            EXPECT_EQ(write_last_work(), Leaving::WRITTEN);
        }
        const Bitmap written = read_tga(in_store("current.000").string());
        EXPECT_EQ(pixel(written, 3, 1), opaque | 0x112233) << alpha;
        EXPECT_EQ(pixel(written, 3, 2), frame_color(0)) << alpha;
    }
}

TEST_F(LastWork, AnOperationThatChangedTheSizeIsKept)
{
    make_frames(1);
    {
        const UndoableOperation resize;
        store.frame_bitmap = Bitmap(20, 10, 0x445566);
        store.alpha_bitmap = Bitmap(20, 10, 0xffffff);
        EXPECT_EQ(write_last_work(), Leaving::WRITTEN);
    }
    EXPECT_EQ(pixel(read_tga(in_store("current.000").string()), 19, 9), opaque | 0x445566);
}

} // namespace
} // namespace kelu
