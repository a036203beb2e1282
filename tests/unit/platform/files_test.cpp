// SPDX-License-Identifier: MIT
// Names without case, listing, bounded reading, files that are replaced whole or not at all, and the lock of a folder.
#include "platform/files.h"

#include "platform/file_calls.h"
#include "platform/folder_lock.h"
#include "support/temporary_folder.h"
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kelu::platform {
namespace {

namespace fs = std::filesystem;

std::vector<uint8_t> bytes_of(std::string_view text) { return {text.begin(), text.end()}; }

std::size_t files_in(const fs::path& folder)
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

TEST(Names, TheExactNameComesBeforeACaseBlindOne)
{
    const TemporaryFolder folder;
    folder.put("Art.PNG", "");
    folder.put("ART.png", "");
    EXPECT_EQ(resolve_name(".", "Art.PNG"), "Art.PNG");
    EXPECT_EQ(resolve_name(".", "art.png"), "ART.png"); // of two, the first in byte order
    EXPECT_EQ(resolve_name(".", "missing"), "missing");
    EXPECT_EQ(resolve_name("no folder", "art.png"), "art.png");
    EXPECT_FALSE(same_name("ab", "abc"));
    EXPECT_EQ(upper_case("zé_9.tga"), "Zé_9.TGA");
}

TEST(Names, APathIsResolvedPartByPart)
{
    const TemporaryFolder folder;
    fs::create_directories("Work/Deep place");
    folder.put("Work/Deep place/Cat.Gif", "");
    EXPECT_EQ(resolve_path("WORK/DEEP PLACE/CAT.GIF"), "Work/Deep place/Cat.Gif");
    EXPECT_EQ(resolve_path("work\\deep place\\new.gif"), "Work/Deep place/new.gif");
    EXPECT_EQ(resolve_path(upper_case("Work") + "/"), "Work/");
    const std::string absolute = folder.path().string();
    EXPECT_EQ(resolve_path(absolute + "/WORK"), absolute + "/Work");

    {
        const DirectoryVisit visit("WORK/DEEP place");
        ASSERT_TRUE(visit.entered());
        EXPECT_EQ(working_directory(), absolute + "/Work/Deep place");
        EXPECT_FALSE(change_directory("Cat.Gif"));
        EXPECT_FALSE(DirectoryVisit("gone").entered());
        EXPECT_EQ(working_directory(), absolute + "/Work/Deep place");
    }
    EXPECT_EQ(working_directory(), absolute);
}

TEST(Listing, ShowsWhatCanBeOpenedInOneOrder)
{
    const TemporaryFolder folder;
    folder.put("b.tga", "12345");
    folder.put("A.tga", "");
    folder.put("a.tga", "1");
    folder.put(".hidden", "");
    fs::create_directory("zoo");
    fs::create_directory("Bin");
    fs::create_symlink("b.tga", "link");
    fs::create_symlink("gone", "dangling");
    mkfifo("pipe", 0600);

    std::vector<std::string> names;
    forget_failure();
    for (const Entry& entry : list_folder("."))
        names.push_back(entry.name + (entry.is_folder ? "/" : "=" + std::to_string(entry.size)));
    EXPECT_EQ(names, (std::vector<std::string>{"Bin/", "zoo/", "A.tga=0", "a.tga=1", "b.tga=5", "link=5"}));
    EXPECT_EQ(last_failure(), 0);
    EXPECT_TRUE(list_folder("b.tga").empty());
    EXPECT_EQ(last_failure(), ENOTDIR) << "a folder that can't be read isn't an empty one";
    const FolderNames seen("Bin/..");
    fs::remove("b.tga");
    for (const char* name : {"Bin", "A.tga", "b.tga", "link", "pipe"})
        EXPECT_TRUE(seen.contains(name)) << name;
    EXPECT_FALSE(seen.contains("B.tga"));
    EXPECT_FALSE(FolderNames().contains("b.tga"));
    EXPECT_FALSE(FolderNames().contains("link")) << "it leads nowhere now";
}

TEST(Reading, TakesRegularFilesUpToTheLimit)
{
    const TemporaryFolder folder;
    folder.put("five", "12345");
    fs::create_directory("folder");
    mkfifo("pipe", 0600);
    std::vector<uint8_t> bytes;
    EXPECT_TRUE(read_file("five", 5, bytes));
    EXPECT_EQ(bytes, bytes_of("12345"));
    EXPECT_FALSE(read_file("five", 4, bytes));
    EXPECT_TRUE(bytes.empty());
    for (const char* name : {"missing", "folder", "pipe", "/dev/zero"}) {
        EXPECT_FALSE(read_file(name, 100, bytes)) << name;
        EXPECT_EQ(file_size(name), -1) << name;
    }
    EXPECT_EQ(file_size("five"), 5);
}

TEST(Replacement, TheOldFileStandsUntilTheCommit)
{
    const TemporaryFolder folder;
    folder.put("state", "old");
    chmod("state", 0640);
    {
        FileReplacement abandoned("state");
        ASSERT_TRUE(abandoned.write(bytes_of("half")));
    }
    EXPECT_EQ(folder.text("state"), "old");
    {
        FileReplacement whole("state");
        ASSERT_TRUE(whole.write(bytes_of("new ")));
        ASSERT_TRUE(whole.write(bytes_of("text")));
        EXPECT_EQ(folder.text("state"), "old");
        fs::create_directory("elsewhere");
        const DirectoryVisit visit("elsewhere"); // a commit finds its file from any folder
        ASSERT_TRUE(whole.commit());
        EXPECT_FALSE(whole.commit());
    }
    EXPECT_EQ(folder.text("state"), "new text");
    struct stat status = {};
    ASSERT_EQ(stat("state", &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
    EXPECT_EQ(files_in("."), 2U); // nothing is left beside
}

TEST(Replacement, FollowsLinksTakesLongNamesAndRefusesFolders)
{
    const TemporaryFolder folder;
    folder.put("real", "old");
    fs::create_symlink("real", "link");
    EXPECT_TRUE(replace_file("link", bytes_of("new")));
    EXPECT_TRUE(fs::is_symlink("link"));
    EXPECT_EQ(folder.text("real"), "new");

    const std::string longest(255, 'n');
    EXPECT_TRUE(replace_file(longest, bytes_of("x")));
    EXPECT_FALSE(replace_file(longest + "n", bytes_of("x")));

    folder.put(".fresh.kelu-new", "left by a crash");
    EXPECT_TRUE(replace_file("fresh", bytes_of("y")));
    EXPECT_EQ(folder.text("fresh"), "y");
    fs::create_directory("folder");
    for (const char* name : {"folder", "gone/file"})
        EXPECT_FALSE(replace_file(name, bytes_of("x"))) << name;
    EXPECT_EQ(files_in("."), 5U);
}

TEST(FolderLock, GoesWithItsProcessHoweverThatEnds)
{
    const TemporaryFolder folder;
    int ready[2] = {};
    ASSERT_EQ(pipe(ready), 0);
    const pid_t other = fork();
    if (other == 0) {
        const char taken = lock_folder() ? 'y' : 'n';
        if (write(ready[1], &taken, 1) == 1) pause();
        _exit(0);
    }
    char taken = 0;
    ASSERT_EQ(read(ready[0], &taken, 1), 1);
    EXPECT_EQ(taken, 'y');
    EXPECT_FALSE(lock_folder()) << "the folder is in use";
    kill(other, SIGKILL);
    waitpid(other, nullptr, 0);
    EXPECT_TRUE(lock_folder());
    EXPECT_TRUE(std::filesystem::is_empty("."));
    {
        const TemporaryFolder elsewhere;
        EXPECT_TRUE(lock_folder()) << "another folder is another matter";
    }
    unlock_folder();
    close(ready[0]);
    close(ready[1]);
}

} // namespace
} // namespace kelu::platform
