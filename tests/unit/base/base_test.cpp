// SPDX-License-Identifier: MIT
// The log's own format language, angles and distances, and the bounded reader.
#include "base/log.h"
#include "base/maths.h"
#include "base/reader.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>
#include <tuple>

namespace kelu {

TEST(Log, WritesItsOwnFormats)
{
    const TemporaryFolder folder;
    log_open();
    log_line("[ INIT ] : gone with the next run");
    log_open();
    log_line("[ STATS ] : slot = %d, %S, %F, 100%%, %x%", -7, std::string("name"), 1.5);
    EXPECT_EQ(folder.text("FW_log.txt"), "[ STATS ] : slot = -7, name, 1.500000, 100%, \n")
        << "flushed, old lines gone";
    log_line("%s", std::string(5000, 'x'));
    log_line("%d %d", 1);
    log_close();
    log_line("dropped");
    EXPECT_TRUE(folder.text("FW_log.txt").ends_with("x\n1 \n")) << "long lines are cut, missing arguments are blank";
}

TEST(Maths, DistancesTruncateAndAnglesTurnByQuadrant)
{
    EXPECT_EQ(dist2(0, 0, 3, 4), 5);
    EXPECT_EQ(dist2(0, 0, 1, 1), 1);
    EXPECT_EQ(dist2(-30000, 0, 30000, 30000), 67082);
    EXPECT_EQ(dist3(1, 2, 3, 3, 5, 9), 7);
    using Row = std::tuple<int, int, int>;
    for (const auto& [x, y, angle] :
         {Row{0, 9, 0}, {9, 9, 315}, {9, 0, 270}, {9, -9, 225}, {0, -9, 180}, {-9, -9, 135}, {-9, 9, 45}})
        EXPECT_NEAR(angle_between(0, 0, x, y), angle, 0.001);
}

TEST(ByteReader, GivesZerosAndEndsPastTheEnd)
{
    const Bytes bytes{1, 2, 3};
    ByteReader in(bytes);
    EXPECT_EQ(in.big32(), 0u); // a number that is cut is no number
    EXPECT_TRUE(in.ended());
    EXPECT_EQ(in.left(), 0u);
    EXPECT_EQ(in.byte(), 0);

    ByteReader again(bytes);
    EXPECT_TRUE(again.seek(3)); // the end itself is a place
    EXPECT_FALSE(again.ended());
    EXPECT_FALSE(again.starts_with("x"));
    EXPECT_FALSE(again.seek(4));
    EXPECT_TRUE(again.ended());
    EXPECT_TRUE(again.seek(1));
    EXPECT_EQ(again.take(9).size(), 2u);
    EXPECT_FALSE(again.skip(SIZE_MAX));
}

} // namespace kelu
