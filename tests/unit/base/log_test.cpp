// SPDX-License-Identifier: MIT
// The log's own format language, and angles and distances.
#include "base/log.h"
#include "base/maths.h"
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <tuple>

namespace kelu {
namespace {

std::string log_text()
{
    std::ostringstream text;
    text << std::ifstream("FW_log.txt").rdbuf();
    return text.str();
}

} // namespace

TEST(Log, WritesItsOwnFormats)
{
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "kelu-log-test";
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
    log_open();
    log_line("[ INIT ] : gone with the next run");
    log_open();
    log_line("[ STATS ] : slot = %d, %S, %F, 100%%, %x%", -7, std::string("name"), 1.5);
    EXPECT_EQ(log_text(), "[ STATS ] : slot = -7, name, 1.500000, 100%, \n") << "flushed at once, old lines gone";
    log_line("%s", std::string(5000, 'x'));
    log_line("%d %d", 1);
    EXPECT_TRUE(log_text().ends_with("x\n1 \n")) << "long lines are cut, missing arguments are blank";
    log_close();
    log_line("dropped");
    EXPECT_EQ(log_text().find("dropped"), std::string::npos);
    std::filesystem::current_path("/");
    std::filesystem::remove_all(folder);
}

TEST(Maths, DistancesTruncateAndAnglesTurnByQuadrant)
{
    EXPECT_EQ(dist2(0, 0, 3, 4), 5);
    EXPECT_EQ(dist2(0, 0, 1, 1), 1);
    EXPECT_EQ(dist2(-30000, 0, 30000, 30000), 67082);
    EXPECT_EQ(dist3(1, 2, 3, 3, 5, 9), 7);
    for (const auto& [x, y, angle] : {std::tuple{0, 10, 0},
                                      {10, 10, 315},
                                      {10, 0, 270},
                                      {10, -10, 225},
                                      {0, -10, 180},
                                      {-10, -10, 135},
                                      {-10, 10, 45}})
        EXPECT_NEAR(angle_between(0, 0, x, y), angle, 0.001);
}

} // namespace kelu
