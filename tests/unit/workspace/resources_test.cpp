// SPDX-License-Identifier: MIT
// The fixed pictures of the program as the build makes them, the tiles made at start, and the outline library.
#include "workspace/resources.h"

#include "gui/text.h"
#include "platform/files.h"
#include "platform/host.h"
#include "runtime/pixels.h"
#include "runtime/sheets.h"
#include "runtime/store.h"
#include "support/log_lines.h"
#include "support/paths.h"
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

namespace kelu {
namespace {

/// The program's own folder as the working directory, with everything loaded.
class Resources : public testing::Test {
protected:
    Resources() : visit_(test::app_folder())
    {
        load_application_resources();
        load_framework_video();
    }

private:
    platform::DirectoryVisit visit_;
};

TEST_F(Resources, every_palette_colour_can_be_told_from_all_others)
{
    std::set<int> colors;
    for (int i = 0; i < PAL_SIZE; ++i) {
        colors.insert(palette_color[i]);
        EXPECT_EQ(palette_index(palette_color[i]), i);
    }
    EXPECT_EQ(colors.size(), 256u);
    EXPECT_EQ(palette_color[0], 0);
    EXPECT_FALSE(colors.contains(mask_magenta));
    const int near_black = palette_color[1];
    EXPECT_TRUE(near_black != 0 && colors_close(near_black, 0, 24));
}

// The bands are where diagonal lines from (0, y) to (64, y - 64) fall, in runs of four every 8 rows from -1 on.
TEST(pattern_tiles, hatch_bands)
{
    make_pattern_tiles();
    Bitmap lines(tile_side, tile_side);
    for (int run = -1; run <= 119; run += 8)
        for (int y = run; y < run + 4; ++y)
            line(lines, 0, y, 64, y - 64, 0xffffff);
    for (int y = 0; y < tile_side; ++y)
        for (int x = 0; x < tile_side; ++x)
            ASSERT_EQ(row(sheets.hatch_tile, y)[x], row(lines, y)[x]) << x << ", " << y;
}

TEST(object_library, reads_records_and_stays_inside_its_rows)
{
    const TemporaryFolder folder;
    std::string text = "1\n2\n3\n4\n2\n10\n-11\n12\n 13\n5\n6\n7\n8\n300\n";
    for (int i = 0; i < 600; ++i)
        text += std::to_string(i) + "\n";
    text += "9\nrubbish\n99999999999999\n9\n0\n";
    for (int i = 0; i < 250; ++i)
        text += "1\n1\n1\n1\n0\n";
    folder.put("obj_lib.def", text);
    load_object_library();

    const auto& first = object_library.rows[0];
    EXPECT_EQ(std::vector<int>(first.begin(), first.begin() + 10),
              (std::vector<int>{1, 2, 3, 4, 2, 10, -11, 12, 13, 0}));
    const auto& long_one = object_library.rows[1];
    EXPECT_EQ(long_one[4], 253) << "pairs beyond the row are dropped";
    EXPECT_EQ(long_one[5 + 505], 505);
    EXPECT_EQ(long_one[511], 0);
    EXPECT_EQ(object_library.rows[2][0], 9) << "and the next record is found behind them";
    EXPECT_EQ(object_library.rows[2][1], 0);
    EXPECT_EQ(object_library.rows[199][3], 1);

    folder.put("obj_lib.def", "4\n4\n4\n4\n2000000000\n1\n");
    load_object_library();
    EXPECT_EQ(object_library.rows[0][5], 1);
    EXPECT_EQ(object_library.rows[1][0], 0) << "an older library is gone";
    folder.put("obj_lib.def", "1\n1\n1\n1\n-5\n7\n");
    load_object_library();
    EXPECT_EQ(object_library.rows[0][4], 0);
    EXPECT_EQ(object_library.rows[1][0], 7);
}

TEST(resources_DeathTest, a_missing_picture_ends_the_program)
{
    platform::Host host = platform::headless_host;
    host.show_message = [](const char* text) { std::fprintf(stderr, "box: %s\n", text); };
    platform::host = &host;
    LogLines log;
    std::filesystem::create_directory("resource");
    EXPECT_EXIT(load_application_resources(), testing::ExitedWithCode(255), "box: A critical resource file is missing");
    EXPECT_EQ(log.take(), std::vector<std::string>{"ERROR: Failed to find a resource file. File = K_HD_1X.RES"});
    platform::host = &platform::headless_host;
}

} // namespace
} // namespace kelu
