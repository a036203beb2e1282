// SPDX-License-Identifier: MIT
// Letters for places.
#include "base/log.h"
#include "platform/places.h"
#include "support/temporary_folder.h"
#include <cstdlib>
#include <gtest/gtest.h>

namespace kelu::platform {
namespace {

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
    const char* home = std::getenv("HOME");
    const std::string before = home ? home : "";
    setenv("HOME", folder.path().c_str(), 1);
    log_open();
    scan_drives();
    log_close();
    setenv("HOME", before.c_str(), 1);
    EXPECT_EQ(places.drive_root['C' - 'A'], "/");
    EXPECT_EQ(drive_of(folder.path() / "art"), 'H' - 'A');
    const std::string log = folder.text("FW_log.txt");
    EXPECT_NE(log.find("[ INIT ] : Found Drive - C\n"), std::string::npos);
    EXPECT_NE(log.find("[ INIT ] : Found Drive - H\n"), std::string::npos);
    EXPECT_EQ(log.find("Found Drive - A"), std::string::npos);
    places = {};
}

} // namespace
} // namespace kelu::platform
