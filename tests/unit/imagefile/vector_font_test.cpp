// SPDX-License-Identifier: MIT
// Vector fonts: sizes, the two forms of letters, fonts of bitmaps. Damaged ones the fuzz target looks for.
#include "imagefile/vector_font.h"

#include "runtime/pixels.h"
#include "support/paths.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

/// A font of one size, 6 pixels over and 2 below the baseline, with one letter: an A of 4 x 6 pixels.
std::string bitmap_font() { return test::data_folder() + "/fonts/block.bdf"; }

class VectorFontTest : public testing::Test {
protected:
    VectorFontTest() { EXPECT_EQ(font_system_init(), 0); }
    ~VectorFontTest() override { font_system_exit(); }
};

std::string system_font() { return test::app_folder() + "/fonts/system.ttf"; }

} // namespace

TEST_F(VectorFontTest, LinesAreAsHighAsAsked)
{
    const FontOwner font = font_load(system_font());
    ASSERT_TRUE(font);
    EXPECT_EQ(font_text_height(*font), 0);
    int last_length = 0;
    for (const int size : {4, 17, 28, 75, 350}) {
        EXPECT_EQ(font_set_size(*font, size), 0);
        EXPECT_TRUE(font_text_height(*font) == size || font_text_height(*font) == size + 1) << size;
        EXPECT_GT(font_text_length(*font, "Kelu"), last_length);
        last_length = font_text_length(*font, "Kelu");
    }
    for (const int refused : {0, -3})
        EXPECT_EQ(font_set_size(*font, refused), -1);
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
    EXPECT_EQ(font_text_length(*font, "AA"), 10);
    for (const auto draw : {font_draw_text, font_draw_text_plain}) {
        const Bitmap text(30, 30);
        draw(text, *font, "A", 10, 10, 0xffffff);
        const UsedBox box = used_box(text, 0);
        EXPECT_EQ(std::tie(box.x, box.y, box.w, box.h), std::make_tuple(10, 10, 4, 6));
    }
}

} // namespace kelu
