// SPDX-License-Identifier: MIT
// The program's own font: from strokes to a TrueType file that FreeType reads.
#include "stroke_font.h"

#include "imagefile/vector_font.h"
#include "runtime/pixels.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace kelu::tools {
namespace {

constexpr const char* strokes = "pen 2\nline 15 5\ngap 2 ; one on each side\n"
                                "glyph #0 4\nline 0 0 4 0\n"
                                "glyph #32 3\n"
                                "glyph I 0\nline 0 1 0 13\n"
                                "glyph o 8\narc 4 5 4 4 0 360\n";

class StrokeFont : public testing::Test {
protected:
    TemporaryFolder folder;
    void refuses(const std::string& text, const char* complaint)
    {
        folder.put("letters.txt", text);
        EXPECT_EXIT(read_stroke_font("letters.txt", "Test"), testing::ExitedWithCode(1), complaint) << text;
    }
};
using StrokeFontDeathTest = StrokeFont;

/// Ink at a pixel of a letter drawn at 5 pixels a step, x and y in steps from the baseline and the letter's left.
bool inked(BITMAP* letter, double x, double y)
{
    return row(letter, static_cast<int>(75 - 5 * y))[static_cast<int>(5 * x)] != 0;
}

} // namespace

TEST_F(StrokeFont, becomes_letters)
{
    folder.put("letters.txt", strokes);
    const auto file = write_true_type(read_stroke_font("letters.txt", "Test"));
    folder.put("x.ttf", {reinterpret_cast<const char*>(file.data()), file.size()});
    ASSERT_EQ(font_system_init(), 0);
    {
        const FontOwner font = font_load("x.ttf");
        ASSERT_TRUE(font);
        ASSERT_EQ(font_set_size(*font, 100), 0);
        EXPECT_EQ(font_text_height(*font), 100);
        EXPECT_NEAR(font_text_length(*font, "I"), 20, 1);
        EXPECT_NEAR(font_text_length(*font, " o"), 35 + 60, 2);
        EXPECT_EQ(font_text_length(*font, "?"), font_text_length(*font, "~")) << "the sign of a missing letter";
        Bitmap letter(60, 100);
        font_draw_text_plain(letter, *font, "o", 0, 0, 0xffffff);
        EXPECT_TRUE(inked(letter, 2, 5));
        EXPECT_TRUE(inked(letter, 10, 5));
        EXPECT_FALSE(inked(letter, 6, 5)) << "the hole";
        EXPECT_TRUE(inked(letter, 6, 1));
        clear_bitmap(letter);
        font_draw_text_plain(letter, *font, "I", 0, 0, 0xffffff);
        const UsedBox box = used_box(letter, 0);
        EXPECT_NEAR(box.w, 10, 1);
        EXPECT_NEAR(box.h, 70, 2) << "round ends reach half a pen further";
    }
    font_system_exit();
}

TEST_F(StrokeFontDeathTest, refuses_mistakes)
{
    refuses("line 15 5\n", "letters.txt:1: expected 'pen' and 1 numbers");
    refuses(std::string(strokes).append("curve 1 2 3 4\n"), "no such stroke");
    refuses(std::string(strokes).append("dot 1 500\n"), "too far away");
    refuses(std::string(strokes).append("glyph A 3\n"), "the glyphs stand in order");
    refuses("pen 2\nline 15 5\ngap 2\nglyph A 3\n", "glyph #0 comes first");
}

} // namespace kelu::tools
