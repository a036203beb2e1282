// SPDX-License-Identifier: MIT
// The folder beside the executable, and the user's folder of an installation.
#include "program/folders.h"

#include "platform/places.h"
#include "support/temporary_folder.h"
#include <cstdlib>
#include <gtest/gtest.h>

namespace kelu {
namespace {

namespace fs = std::filesystem;

/// An environment's word for the time of a test.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name)
    {
        if (const char* before = std::getenv(name)) before_ = before;
        value ? setenv(name, value, 1) : unsetenv(name);
    }
    ~Variable() { before_.empty() ? unsetenv(name_) : setenv(name_, before_.c_str(), 1); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::string before_;
};

TEST(Folders, FollowTheConventionsOfDesktops)
{
    struct Case {
        const char *data, *home, *folder;
    };
    for (const auto& [data, home, folder] : {Case{"/data/of mine", "/home/x", "/data/of mine"},
                                             {nullptr, "/home/x", "/home/x/.local/share"},
                                             {"", "/home/x", "/home/x/.local/share"},
                                             {"relative", "/home/x", "/home/x/.local/share"}}) {
        const Variable first("XDG_DATA_HOME", data), second("HOME", home);
        EXPECT_EQ(platform::user_data_folder(), folder);
    }
}

TEST(Folders, AreTheExecutablesOwnWhereArtLiesBesideItOrNowhere)
{
    const TemporaryFolder folder;
    const Variable data("XDG_DATA_HOME", "/data");
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

} // namespace
} // namespace kelu
