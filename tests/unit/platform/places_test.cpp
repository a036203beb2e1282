// SPDX-License-Identifier: MIT
// Letters for places.
#include "base/log.h"
#include "platform/places.h"
#include "support/temporary_folder.h"
#include <cstdlib>
#include <gtest/gtest.h>

namespace kelu::platform {
namespace {

/// A word of the environment for the time of a block.
class EnvironmentWord {
public:
    EnvironmentWord(const char* name, const std::string& value) : name_(name)
    {
        const char* before = std::getenv(name);
        was_set_ = before != nullptr;
        if (was_set_) before_ = before;
        setenv(name, value.c_str(), 1);
    }
    ~EnvironmentWord()
    {
        if (was_set_)
            setenv(name_, before_.c_str(), 1);
        else
            unsetenv(name_);
    }
    EnvironmentWord(const EnvironmentWord&) = delete;
    EnvironmentWord& operator=(const EnvironmentWord&) = delete;

private:
    const char* name_;
    bool was_set_;
    std::string before_;
};

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

} // namespace
} // namespace kelu::platform
