// SPDX-License-Identifier: MIT
// The text engine pixel by pixel, on a font of 3 x 4 pixels.
#include "gui/text.h"

#include "runtime/pixels.h"
#include "support/pixel_text.h"
#include "test_font.h"
#include <gtest/gtest.h>

namespace kelu::test {

constexpr int ground = 0x101010;
constexpr int orange = 0xfac20c;
constexpr int brown = 0xce9d00;
constexpr int grey = 0xbebeba;

class Text : public testing::Test {
protected:
    static constexpr int font = 7;

    void SetUp() override
    {
        set_test_palette();
        init_text_colours();
        const Bitmap picture = font_picture({
            {'A', {"###", "#.#", "+++", "+.+"}},
            {'I', {".#.", ".#.", ".+.", ".+."}},
            {'g', {".##", "#.#", ".++", "++."}},
            {' ', {}},
        });
        BITMAP* pictures[] = {picture};
        ASSERT_TRUE(load_font(font, pictures));
        text_pen = {};
    }
    void TearDown() override { font_table[font] = {}; }

    std::vector<std::string> drawn(int w, int h, int x, int y, const char* string)
    {
        const Bitmap target(w, h, ground);
        draw_text(target, x, y, string);
        return to_text(target, {{'.', ground},
                                {'#', orange},
                                {'+', brown},
                                {'g', grey},
                                {'h', 0x9da19d},
                                {'o', palette_color[1]},
                                {'s', palette_color[9]},
                                {'1', palette_color[first_marker]},
                                {'2', palette_color[first_marker + 1]}});
    }
};

TEST_F(Text, ACodeChangesTheColourForGood)
{
    set_plain_text(font, SET_MESSAGE);
    EXPECT_EQ(drawn(8, 1, 0, 0, "A|c21A")[0], "###.ggg.");
    EXPECT_EQ(text_pen.text_colour_set, 21);
    set_plain_text(font, SET_GLYPH);
    EXPECT_EQ(draw_text(nullptr, text_measure, 0, "|c24AAA|c21AAA"), 24);
    EXPECT_EQ(text_pen.text_colour_set, 21);
    set_plain_text(font, SET_MESSAGE);
    EXPECT_EQ(text_width("|c21A"), 4); // leaves the pen alone
    EXPECT_EQ(text_pen.text_colour_set, SET_MESSAGE);
    draw_text(nullptr, text_measure, 0, "|cxx");
    EXPECT_EQ(text_pen.text_colour_set, 0);
    EXPECT_EQ(draw_text(nullptr, text_measure, 0, "A|c"), 4 + 2 * 8); // cut short: no code
}

TEST_F(Text, AColourThatIsALaterMarkerIsReplacedAgain)
{
    text_colours[60] = {palette_color[first_marker + 1], orange, -1, -1, -1, -1, -1, -1};
    set_plain_text(font, 60);
    EXPECT_EQ(drawn(3, 1, 0, 0, "A")[0], "###");
}

TEST_F(Text, OnlyWhatLiesOnTheBitmapIsDrawn)
{
    set_outlined_text(font, SET_MESSAGE);
    EXPECT_EQ(drawn(3, 3, -1, -1, "A"), (std::vector<std::string>{
                                            "o#o",
                                            "++o",
                                            "o+o",
                                        }));
    const Bitmap target(4, 4, ground);
    EXPECT_EQ(draw_text(target, 321, 0, "AAA"), 12);
    EXPECT_EQ(draw_text(target, 0, 241, "AAA"), 12);
    EXPECT_EQ(row(target, 0)[0], ground);
    EXPECT_EQ(draw_text(target, 0, 0, ""), 0);
}

TEST_F(Text, ThePenKeepsWhatIsNotNamed)
{
    set_text({.slot = font, .colour_set = 24, .shadow = 1, .shadow_colour = 9, .outline = 3, .opacity = 77});
    set_text({5, -1, -1, -1, -1, -1, -1});
    EXPECT_EQ(text_pen.text_slot, 5);
    EXPECT_EQ(text_pen.text_colour_set, 24);
    EXPECT_EQ(text_pen.text_outline, 3);
    EXPECT_EQ(text_pen.text_opacity, 77);
    set_text({.slot = 16, .colour_set = 1});
    EXPECT_EQ(text_pen.text_slot, 5);
    EXPECT_EQ(text_pen.text_colour_set, 24);
}

TEST_F(Text, BrokenFontPicturesAreRefused)
{
    Bitmap empty(320, 200);
    BITMAP* pictures[] = {empty};
    EXPECT_FALSE(load_font(9, pictures));
    EXPECT_FALSE(load_font(16, pictures));
    const Bitmap target(8, 8, ground);
    set_plain_text(9, SET_MESSAGE);
    draw_text(target, 0, 0, "A"); // a font that isn't there draws nothing
    EXPECT_EQ(row(target, 0)[0], ground);
}

} // namespace kelu::test
