// SPDX-License-Identifier: MIT
// Lists of URIs, as file managers hand them over, and the positional map as Allegro's configuration reads it;
// letters for places; the presenter's scaler against Allegro's own enlarging.
#include "platform/dropped_files.h"
#include "platform/keyboard_map.h"
#include "platform/places.h"
#include "platform/scaler.h"

#include "base/log.h"
#include "support/environment.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <allegro.h>
#include <array>
#include <gtest/gtest.h>
#include <map>
#include <unistd.h>

namespace kelu::platform {
namespace {

using test::EnvironmentWord;
using Files = std::vector<std::string>;

TEST(DroppedFiles, AreTheFilesOfThisMachineInAList)
{
    std::array<char, 256> host{};
    gethostname(host.data(), host.size() - 1);
    struct Case {
        std::string list;
        Files files;
    };
    for (const auto& [list, files] : {
             Case{"file:///a/b.png\r\nfile:///c%20d/%C3%A4.gif\r\n", {"/a/b.png", "/c d/\u00e4.gif"}},
             {"file:///last", {"/last"}},
             {"# a comment\nfile:/one/slash\n\n", {"/one/slash"}},
             {"file://localhost/x\nfile://" + std::string(host.data()) + "/y", {"/x", "/y"}},
             {"file://elsewhere.invalid/x\nhttp://localhost/x\nfile:relative\nfile://host\nfile:", {}},
             // Numbers that are none, and a byte that would end the name early.
             {"file:///a%2\nfile:///a%zz\nfile:///a%\nfile:///a%00b\nfile:///a%-1", {}},
             {"", {}},
         })
        EXPECT_EQ(files_of_uri_list(list), files) << list;
}

TEST(DroppedFiles, AreHandedOverOnceAndInOrder)
{
    add_dropped_files({"/a", "/b"});
    add_dropped_files({"/c"});
    EXPECT_EQ(take_dropped_files(), (Files{"/a", "/b", "/c"}));
    EXPECT_EQ(take_dropped_files(), Files());
}

TEST(KeyboardMap, NoTwoKeysShareAScancode)
{
    const std::string text = keyboard_map_text();
    push_config_state();
    set_config_data(text.c_str(), static_cast<int>(text.size()));
    std::map<int, int> key_of; // scancode to key code
    for (int code = 8; code < 256; ++code) {
        const int scancode = get_config_int("xkeymap", ("keycode" + std::to_string(code)).c_str(), 0);
        if (scancode == 0) continue;
        EXPECT_TRUE(key_of.emplace(scancode, code).second) << "scancode " << scancode;
    }
    pop_config_state();
    // Rows of a PC keyboard by their ends, and the key that the driver and the program name differently.
    EXPECT_EQ(key_of[KEY_TAB], 23);
    EXPECT_EQ(key_of[KEY_P], 33);
    EXPECT_EQ(key_of[KEY_L], 46);
    EXPECT_EQ(key_of[KEY_SEMICOLON], 47);
    EXPECT_EQ(key_of[KEY_SLASH], 61);
    EXPECT_EQ(key_of[KEY_F10], 76);
    EXPECT_EQ(key_of[KEY_DEL_PAD], 91);
    EXPECT_EQ(key_of[KEY_DEL], 119);
    EXPECT_EQ(key_of.size(), 100U);
}

TEST(Places, TheDriveOfAFolderIsTheLongestRootThatHoldsIt)
{
    places = {};
    places.drive_root['C' - 'A'] = "/";
    places.drive_root['H' - 'A'] = "/home/ann";
    places.drive_root['D' - 'A'] = "/media/ann/stick";
    EXPECT_EQ(drive_of("/"), 'C' - 'A');
    EXPECT_EQ(drive_of("/home/ann/art"), 'H' - 'A');
    EXPECT_EQ(drive_of("/home/ann"), 'H' - 'A');
    EXPECT_EQ(drive_of("/home/anna"), 'C' - 'A');
    EXPECT_EQ(drive_of("/media/ann/stick/a"), 'D' - 'A');
    EXPECT_FALSE(drive_exists(-1));
    EXPECT_FALSE(drive_exists(26));
    places = {};
    EXPECT_EQ(drive_of("/home"), -1);
}

TEST(Places, ScanFindsRootAndHomeAndLogsThem)
{
    const TemporaryFolder folder;
    const EnvironmentWord home("HOME", folder.path());
    log_open();
    scan_drives();
    log_close();
    EXPECT_EQ(places.drive_root['C' - 'A'], "/");
    EXPECT_EQ(drive_of(folder.path() / "art"), 'H' - 'A');
    const std::string log = folder.text("FW_log.txt");
    EXPECT_NE(log.find("[ INIT ] : Found Drive - C\n"), std::string::npos);
    EXPECT_NE(log.find("[ INIT ] : Found Drive - H\n"), std::string::npos);
    EXPECT_EQ(log.find("Found Drive - A"), std::string::npos);
    places = {};
}

TEST(Places, PicturesLieWhereTheListSays)
{
    const TemporaryFolder home;
    const EnvironmentWord home_word("HOME", home.path().string()), config_word("XDG_CONFIG_HOME", "");
    const std::string in_home = home.path().string() + "/";
    EXPECT_EQ(picture_folder(), home.path().string());
    std::filesystem::create_directories(in_home + "Pictures");
    EXPECT_EQ(picture_folder(), in_home + "Pictures") << "without a list";
    for (const char* folder : {"Bilder", "a \"b\"", ".config", "elsewhere/x"})
        std::filesystem::create_directories(in_home + folder);
    struct Row {
        const char *list, *folder;
    };
    for (const auto& [list, folder] :
         {Row{"# list\nXDG_MUSIC_DIR=\"$HOME/Music\"\n XDG_PICTURES_DIR=\"$HOME/Bilder\"\n", "Bilder"},
          Row{"XDG_PICTURES_DIR=\"$HOME/a \\\"b\\\"\"", "a \"b\""},
          Row{"XDG_PICTURES_DIR=\"$HOME/gone\"\n", "Pictures"}, Row{"XDG_PICTURES_DIR=\"relative\"\n", "Pictures"},
          Row{"XDG_PICTURES_DIR=\n", "Pictures"}, Row{"XDG_PICTURES_DIR=\"", "Pictures"}}) {
        home.put(".config/user-dirs.dirs", list);
        EXPECT_EQ(picture_folder(), in_home + folder) << list;
    }
    home.put("elsewhere/user-dirs.dirs", "XDG_PICTURES_DIR=\"" + in_home + "elsewhere/x\"\n");
    const EnvironmentWord other_config("XDG_CONFIG_HOME", in_home + "elsewhere");
    EXPECT_EQ(picture_folder(), in_home + "elsewhere/x");
}

TEST(Scaler, EachPixelOfTheRowsBecomesASquareAtEveryScale)
{
    Bitmap picture = test::paint(13, 6, [](int x, int y) { return (x * 7 + 1) << 16 | (y * 5 + 2) << 8 | 9; });
    for (int scale = min_scale; scale <= max_scale; ++scale) {
        const Bitmap scaled(13 * scale, 6 * scale);
        const Bitmap expected(13 * scale, 6 * scale);
        stretch_blit(picture, expected, 0, 0, 13, 6, 0, 0, 13 * scale, 6 * scale);
        scale_rows(picture, scaled, scale, 0, 5, ChannelOrder::PLAIN);
        EXPECT_EQ(test::difference(scaled, expected), "") << scale;
    }
    // Other rows stay as they are; red and blue exchanged.
    picture = Bitmap(13, 6, 0x112233);
    const Bitmap scaled(13 * 3, 6 * 3, 0x123456);
    scale_rows(picture, scaled, 3, 2, 3, ChannelOrder::EXCHANGED);
    const Bitmap expected =
        test::paint(13 * 3, 6 * 3, [](int, int y) { return y < 6 || y > 11 ? 0x123456 : 0x332211; });
    EXPECT_EQ(test::difference(scaled, expected), "");
}

} // namespace
} // namespace kelu::platform
