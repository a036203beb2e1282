// SPDX-License-Identifier: MIT
// Lists of URIs, as file managers hand them over.
#include "platform/dropped_files.h"

#include <array>
#include <gtest/gtest.h>
#include <unistd.h>

namespace kelu::platform {
namespace {

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
    EXPECT_EQ(take_dropped_files(), Files());
    add_dropped_files({"/a", "/b"});
    add_dropped_files({"/c"});
    EXPECT_EQ(take_dropped_files(), (Files{"/a", "/b", "/c"}));
    EXPECT_EQ(take_dropped_files(), Files());
}

} // namespace
} // namespace kelu::platform
