// SPDX-License-Identifier: MIT
// Vector fonts: sizes, the two forms of letters, fonts of bitmaps, and files that are no fonts.
#include "imagefile/vector_font.h"

#include "platform/files.h"
#include "runtime/pixels.h"
#include "support/paths.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sys/stat.h>

namespace kelu {
namespace {

/// A font of one size, 6 pixels over and 2 below the baseline, with one letter: an A of 4 x 6 pixels.
std::string bitmap_font() { return test::data_folder() + "/fonts/block.bdf"; }

class VectorFontTest : public testing::Test {
protected:
    VectorFontTest() { EXPECT_EQ(font_system_init(), 0); }
    ~VectorFontTest() override { font_system_exit(); }
    TemporaryFolder folder;
};

std::string system_font() { return test::app_folder() + "/fonts/system.ttf"; }

/// How many pixels have each colour.
std::map<int, int> colours_of(BITMAP* bitmap)
{
    std::map<int, int> count;
    for (int y = 0; y < bitmap->h; ++y)
        for (int x = 0; x < bitmap->w; ++x)
            ++count[row(bitmap, y)[x]];
    return count;
}

/// A text of a size, white on black, as the text tool draws it.
Bitmap written(VectorFont& font, const char* text, bool soft)
{
    Bitmap bitmap(font_text_length(font, text) + 20, font_text_height(font) + 20);
    (soft ? font_draw_text : font_draw_text_plain)(bitmap, font, text, 10, 10, 0xffffff);
    return bitmap;
}

/// Writes bytes as a font and does with it whatever the program does.
void use_as_font(const TemporaryFolder& folder, std::span<const uint8_t> bytes)
{
    folder.put("x.ttf", bytes);
    const FontOwner font = font_load("x.ttf");
    if (!font) return;
    for (const int size : {12, 350}) {
        font_set_size(*font, size);
        EXPECT_LE(font_text_height(*font), 4096 * 2);
        Bitmap target(300, 60);
        font_draw_text(target, *font, "Ag$\x80", 5, 5, 0xffffff);
        font_draw_text_plain(target, *font, "Ag$\x80", -5, -5, 0xffffff);
    }
}

} // namespace

TEST_F(VectorFontTest, LinesAreAsHighAsAsked)
{
    const FontOwner font = font_load(system_font());
    ASSERT_TRUE(font);
    EXPECT_EQ(font_text_height(*font), 0);
    EXPECT_EQ(font_set_size(*font, 0), -1);
    int last_length = 0;
    for (const int size : {4, 17, 28, 75, 350}) {
        EXPECT_EQ(font_set_size(*font, size), 0);
        EXPECT_TRUE(font_text_height(*font) == size || font_text_height(*font) == size + 1) << size;
        EXPECT_GT(font_text_length(*font, "Kelu"), last_length);
        last_length = font_text_length(*font, "Kelu");
    }
    EXPECT_EQ(font_set_size(*font, 350), 0);
    EXPECT_EQ(font_set_size(*font, -3), -1);
    EXPECT_EQ(font_text_length(*font, "Kelu"), last_length);
    font_set_spacing(*font, 7);
    EXPECT_EQ(font_text_length(*font, "Kelu"), last_length + 4 * 7);
    font_set_spacing(*font, -7);
    EXPECT_EQ(font_text_length(*font, "Kelu"), last_length);
}

TEST_F(VectorFontTest, AFontOfBitmapsHasItsOwnSizesOnly)
{
    const FontOwner font = font_load(bitmap_font());
    ASSERT_TRUE(font);
    EXPECT_EQ(font_set_size(*font, 28), -1);
    EXPECT_EQ(font_set_size(*font, 8), 0);
    EXPECT_EQ(font_text_height(*font), 8);
    EXPECT_EQ(font_text_length(*font, "AA"), 10);
    for (const bool soft : {false, true}) {
        const Bitmap text = written(*font, "A", soft);
        EXPECT_EQ(colours_of(text).at(0xffffff), 14);
        const UsedBox box = used_box(text, 0);
        EXPECT_EQ(std::tie(box.x, box.y, box.w, box.h), std::make_tuple(10, 10, 4, 6));
    }
}

TEST_F(VectorFontTest, WhatIsNoFontIsRefused)
{
    folder.put("text.ttf", "no font at all");
    folder.put("empty.ttf", "");
    std::filesystem::create_directory("folder.ttf");
    ASSERT_EQ(mkfifo("pipe.ttf", 0600), 0);
    for (const char* name : {"text.ttf", "empty.ttf", "folder.ttf", "pipe.ttf", "missing.ttf"})
        EXPECT_FALSE(font_load(name)) << name;
}

TEST_F(VectorFontTest, DamagedFilesDoNoHarm)
{
    std::vector<uint8_t> whole;
    ASSERT_TRUE(platform::read_file(system_font(), 1 << 24, whole));
    for (std::size_t length = 0; length < whole.size(); length += whole.size() / 40)
        use_as_font(folder, std::span(whole).first(length));
    std::mt19937 random(1);
    for (int round = 0; round < 150; ++round) {
        std::vector<uint8_t> bytes = whole;
        // Most of what decides stands in the tables at the front.
        for (int i = 0; i < 12; ++i)
            bytes[random() % (i < 8 ? 600 : bytes.size())] = static_cast<uint8_t>(random());
        use_as_font(folder, bytes);
    }
}

} // namespace kelu
