// SPDX-License-Identifier: MIT
// The cipher of the resource files, the conversion of plain pictures, and the ways out when a file is not usable.
#include "framework/resource_files.h"

#include "imagefile/gif.h"
#include "platform/files.h"
#include "platform/host.h"
#include "runtime/pixels.h"
#include "runtime/random.h"
#include "runtime/sheets.h"
#include "support/log_lines.h"
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>

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
    EXPECT_EQ(row(picture, 1)[2], pack_rgb(255, 153, 206));
    EXPECT_EQ(row(picture, 0)[0], pack_rgb(40, 80, 121));
    EXPECT_EQ(fs::directory_iterator(".")->path().filename(), "ART") << "nothing else is left";
}

TEST(resource_files, the_newer_of_the_two_files_wins)
{
    const TemporaryFolder folder;
    write_gif("ART.gif", 9);
    load_resource_bitmap("ART");

    write_gif("ART.gif", 7);
    fs::last_write_time("ART.gif", fs::last_write_time("ART") - 10s);
    EXPECT_EQ(row(load_resource_bitmap("ART"), 1)[2], pack_rgb(255, 153, 206));
    EXPECT_TRUE(platform::file_exists("ART.gif")) << "an older plain file stays";

    fs::last_write_time("ART.gif", fs::last_write_time("ART") + 10s);
    EXPECT_EQ(row(load_resource_bitmap("ART"), 1)[2], pack_rgb(40, 80, 121));
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

/// A host whose message box writes to the standard error, where a death test reads it.
platform::Host host_with_box()
{
    platform::Host made = platform::headless_host;
    made.show_message = [](const char* text) { std::fprintf(stderr, "box: %s\n", text); };
    return made;
}

TEST(resource_files_DeathTest, unusable_files_end_the_program_with_a_message)
{
    const platform::Host host = host_with_box();
    platform::host = &host;
    LogLines log;
    const auto stopped = testing::ExitedWithCode(255);

    EXPECT_EXIT(load_resource_bitmap("NONE"), stopped, "box: A critical resource file is missing. Please reinstall");
    EXPECT_EQ(log.take(), std::vector<std::string>{"ERROR: Failed to find a resource file. File = NONE"});

    ASSERT_TRUE(platform::replace_file("TORN", scramble(Bytes{'G', 'I', 'F', '8'}, 3)));
    EXPECT_EXIT(load_resource_bitmap("TORN"), stopped, "box: A critical resource file is missing.");
    EXPECT_EQ(log.take(), std::vector<std::string>{"ERROR: Failed to find a resource file. File = TORN"});

    EXPECT_EXIT(convert_resource("NONE.gif", "NONE"), stopped, "box: A resource file conversion failed.");
    EXPECT_EQ(log.take(), std::vector<std::string>{"ERROR: Failed to convert a resource file. File = NONE.gif"});
    platform::host = &platform::headless_host;
}

} // namespace
} // namespace kelu
