// SPDX-License-Identifier: MIT
// The cipher of the resource files, the conversion of plain pictures, the ways out when a file is not usable, and the
// fixed pictures of the program: as the build makes them, the tiles made at start, and the outline library.
#include "workspace/resources.h"

#include "base/log.h"
#include "framework/resource_files.h"
#include "gui/text.h"
#include "imagefile/gif.h"
#include "platform/files.h"
#include "platform/host.h"
#include "runtime/pixels.h"
#include "runtime/sheets.h"
#include "support/paths.h"
#include "support/temporary_folder.h"
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

namespace kelu {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// A GIF of 3 x 2 pixels in two colours, with one of them at (2, 1).
void write_gif(const std::string& name, int spot)
{
    RGB palette[PAL_SIZE] = {};
    palette[7] = {10, 20, 30, 0};
    palette[9] = {63, 38, 51, 0};
    Bitmap picture(create_bitmap_ex(8, 3, 2));
    clear_to_color(picture, 7);
    picture->line[1][2] = static_cast<unsigned char>(spot);
    ASSERT_EQ(save_gif(name.c_str(), picture, palette), 0);
}

Bytes bytes_of(const std::string& name)
{
    Bytes bytes;
    EXPECT_TRUE(platform::read_file(name, 1u << 20, bytes)) << name;
    return bytes;
}

TEST(resource_cipher, gives_the_plain_bytes_back_from_every_start)
{
    Bytes plain(700);
    for (std::size_t i = 0; i < plain.size(); ++i)
        plain[i] = static_cast<uint8_t>(i * 7 + i / 256);
    for (int start = 0; start < 64; ++start) {
        const Bytes hidden = scramble(plain, start);
        EXPECT_EQ(hidden.size(), plain.size() + 1);
        EXPECT_EQ(unscramble(hidden), plain) << "start " << start;
    }
    EXPECT_TRUE(unscramble(Bytes{17}).empty());
    EXPECT_TRUE(unscramble({}).empty());
}

TEST(resource_files, a_plain_picture_becomes_the_resource_and_disappears)
{
    const TemporaryFolder folder;
    write_gif("ART.gif", 9);
    const Bytes plain = bytes_of("ART.gif");

    const Bitmap picture = load_resource_bitmap("ART");

    EXPECT_FALSE(platform::file_exists("ART.gif"));
    const Bytes hidden = bytes_of("ART");
    EXPECT_EQ(hidden.size(), plain.size() + 1);
    EXPECT_LT(hidden[0], 8);
    EXPECT_EQ(unscramble(hidden), plain);

    ASSERT_EQ(picture.width(), 3);
    ASSERT_EQ(picture.height(), 2);
    EXPECT_EQ(framework_palette[9].g, 38);
    // 6 bits grow to 8 by v x 255 / 63, truncated.
    const int spot = pack_rgb(255, 153, 206), ground = pack_rgb(40, 80, 121);
    EXPECT_EQ(row(picture, 1)[2], spot);
    EXPECT_EQ(row(picture, 0)[0], ground);
    EXPECT_EQ(fs::directory_iterator(".")->path().filename(), "ART") << "nothing else is left";

    write_gif("ART.gif", 7); // the newer of the two files wins
    fs::last_write_time("ART.gif", fs::last_write_time("ART") - 10s);
    EXPECT_EQ(row(load_resource_bitmap("ART"), 1)[2], spot);
    EXPECT_TRUE(platform::file_exists("ART.gif")) << "an older plain file stays";
    fs::last_write_time("ART.gif", fs::last_write_time("ART") + 10s);
    EXPECT_EQ(row(load_resource_bitmap("ART"), 1)[2], ground);
    EXPECT_FALSE(platform::file_exists("ART.gif"));
}

TEST(resource_files, leftovers_of_an_interrupted_load_are_swept)
{
    const TemporaryFolder folder;
    for (const char* name : {"prat", "prat_2.def", "keep"})
        ASSERT_TRUE(platform::replace_file(name, Bytes{1}));
    sweep_old_resources();
    EXPECT_FALSE(platform::file_exists("prat"));
    EXPECT_FALSE(platform::file_exists("prat_2.def"));
    EXPECT_TRUE(platform::file_exists("keep"));
}

TEST(resource_files_DeathTest, unusable_files_end_the_program_with_a_message)
{
    platform::Host host = platform::headless_host;
    host.show_message = [](const char* text) { std::fprintf(stderr, "box: %s\n", text); };
    platform::host = &host;
    const TemporaryFolder folder;
    log_open();
    std::string told;
    ASSERT_TRUE(platform::replace_file("TORN", scramble(Bytes{'G', 'I', 'F', '8'}, 3)));
    const auto stops = [&](void (*load)(), const std::string& box, const std::string& line) {
        EXPECT_EXIT(load(), testing::ExitedWithCode(255), "box: " + box);
        told += "ERROR: Failed to " + line + "\n";
        EXPECT_EQ(folder.text("FW_log.txt"), told);
    };
    const std::string missing = "A critical resource file is missing. Please reinstall";
    stops([] { load_resource_bitmap("NONE"); }, missing, "find a resource file. File = NONE");
    stops([] { load_resource_bitmap("TORN"); }, missing, "find a resource file. File = TORN");
    stops([] { convert_resource("NONE.gif", "NONE"); }, "A resource file conversion failed.",
          "convert a resource file. File = NONE.gif");
    log_close();
    platform::host = &platform::headless_host;
}

TEST(pictures, every_palette_colour_can_be_told_from_all_others)
{
    const platform::DirectoryVisit visit(test::app_folder());
    load_application_resources();
    load_framework_video();
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
    const auto& rows = object_library.rows;
    const auto load = [&folder](const std::string& text) {
        folder.put("obj_lib.def", text);
        load_object_library();
    };
    std::string text = "1\n2\n3\n4\n2\n10\n-11\n12\n 13\n5\n6\n7\n8\n300\n";
    for (int i = 0; i < 600; ++i)
        text += std::to_string(i) + "\n";
    text += "9\nrubbish\n99999999999999\n9\n0\n";
    for (int i = 0; i < 250; ++i)
        text += "1\n1\n1\n1\n0\n";
    load(text);
    EXPECT_EQ(std::vector<int>(rows[0].begin(), rows[0].begin() + 10),
              (std::vector<int>{1, 2, 3, 4, 2, 10, -11, 12, 13, 0}));
    EXPECT_EQ(rows[1][4], 253) << "pairs beyond the row are dropped";
    EXPECT_EQ(rows[1][5 + 505], 505);
    EXPECT_EQ(rows[1][511], 0);
    EXPECT_EQ(rows[2][0], 9) << "and the next record is found behind them";
    EXPECT_EQ(rows[2][1], 0);
    EXPECT_EQ(rows[199][3], 1);
    load("4\n4\n4\n4\n2000000000\n1\n");
    EXPECT_EQ(rows[0][5], 1);
    EXPECT_EQ(rows[1][0], 0) << "an older library is gone";
    load("1\n1\n1\n1\n-5\n7\n");
    EXPECT_EQ(rows[0][4], 0);
    EXPECT_EQ(rows[1][0], 7);
}

} // namespace
} // namespace kelu
