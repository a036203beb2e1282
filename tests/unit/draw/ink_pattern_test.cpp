// SPDX-License-Identifier: MIT
// Inks that paint a pattern anchored to the frame: gradients at both sides of their nodes, and the cel as a texture.
#include "draw/gradient.h"
#include "support/ink_test.h"

#include "runtime/pixels.h"
#include "support/pixel_text.h"
#include <array>

namespace kelu {
namespace {

class InkPatternTest : public test::InkTest {
protected:
    static constexpr int width = 12;

    void SetUp() override
    {
        InkTest::SetUp();
        spectrum.spectrum_fold = 0;
    }
    static void set_nodes(int ink, std::array<int, 4> nodes)
    {
        for (int i = 0; i < 4; ++i)
            set_option(ink, GRADIENT_START_X + i, nodes[static_cast<std::size_t>(i)]);
        update_gradient_geometry();
    }
    /// The red values along a row of a frame that the ink has painted.
    static std::array<int, width> painted(int ink, int y)
    {
        begin(Bitmap(width, y + 1, 0x6496c8));
        span_ink(0, width - 1, y, ink, 0x123456);
        std::array<int, width> reds{};
        for (int x = 0; x < width; ++x)
            reds[static_cast<std::size_t>(x)] = red_of(frame(x, y));
        return reds;
    }
};

using Reds = std::array<int, 12>;

TEST_F(InkPatternTest, AxisGradientsHoldOrRepeatOnBothSidesOfTheirNodes)
{
    struct Case {
        int start, end, repeat;
        Reds reds;
    };
    constexpr Case cases[] = {
        {3, 6, 0, {0, 0, 0, 0, 63, 127, 191, 252, 252, 252, 252, 252}},
        {3, 6, 1, {63, 127, 191, 0, 63, 127, 191, 0, 63, 127, 191, 0}},
        {6, 3, 0, {255, 255, 255, 255, 191, 127, 63, 2, 2, 2, 2, 2}},
        {6, 3, 1, {191, 127, 63, 255, 191, 127, 63, 255, 191, 127, 63, 255}},
        {5, 5, 0, {255, 255, 255, 255, 255, 255, 2, 2, 2, 2, 2, 2}},
        {5, 5, 1, {255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255}},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(testing::Message() << test.start << ' ' << test.end << ' ' << test.repeat);
        for (const int ink : {INK_H_GRAD, INK_V_GRAD}) {
            set_option(ink, 0, test.repeat);
            set_option(ink, GRADIENT_START, test.start);
            set_option(ink, GRADIENT_END, test.end);
        }
        EXPECT_EQ(painted(INK_H_GRAD, 0), test.reds);
        begin(Bitmap(1, width));
        for (int y = 0; y < width; ++y) {
            apply_ink(0, y, INK_V_GRAD, 0, 0);
            EXPECT_EQ(red_of(frame(0, y)), test.reds[static_cast<std::size_t>(y)]);
        }
    }
}

TEST_F(InkPatternTest, BandsAndFoldsOfTheSpectrum)
{
    spectrum = {.spectrum_start = 0x102030, .spectrum_end = 0xf0a050, .spectrum_fold = 1};
    set_option(INK_H_GRAD, 2, 3);
    set_option(INK_H_GRAD, GRADIENT_START, 2);
    set_option(INK_H_GRAD, GRADIENT_END, 9);
    EXPECT_EQ(painted(INK_H_GRAD, 0), (Reds{16, 16, 16, 16, 90, 165, 165, 165, 90, 16, 16, 16}));
    EXPECT_EQ(frame(4, 0), 0x5a4a3a);
}

TEST_F(InkPatternTest, LinearGradientProjectsOnItsLine)
{
    const auto along_the_line = [] {
        begin(Bitmap(width, 24));
        std::array<int, 9> reds{};
        for (int x = 0; x < 9; ++x) {
            const int y = std::max(2 * x - 3, 0);
            apply_ink(x, y, INK_L_GRAD, 0, 0);
            reds[static_cast<std::size_t>(x)] = red_of(frame(x, y));
        }
        return reds;
    };
    set_nodes(INK_L_GRAD, {2, 2, 8, 10});
    EXPECT_EQ(along_the_line(), (std::array{0, 0, 0, 25, 102, 153, 204, 252, 252}));
    set_option(INK_L_GRAD, 0, 1);
    EXPECT_EQ(along_the_line()[7], 252);
    EXPECT_EQ(along_the_line()[8], 25);
    // Level and upright lines, both ways.
    set_option(INK_L_GRAD, 0, 0);
    set_nodes(INK_L_GRAD, {2, 0, 7, 0});
    EXPECT_EQ(painted(INK_L_GRAD, 0), (Reds{0, 0, 0, 51, 102, 153, 204, 252, 252, 252, 252, 252}));
    set_nodes(INK_L_GRAD, {7, 0, 2, 0});
    EXPECT_EQ(painted(INK_L_GRAD, 0), (Reds{252, 252, 252, 204, 153, 102, 51, 0, 0, 0, 0, 0}));
    set_option(INK_L_GRAD, 0, 1);
    set_nodes(INK_L_GRAD, {2, 0, 7, 0});
    EXPECT_EQ(painted(INK_L_GRAD, 0), (Reds{204, 252, 0, 51, 102, 153, 204, 252, 0, 51, 102, 153}));
    set_nodes(INK_L_GRAD, {0, 7, 0, 2});
    begin(Bitmap(1, width));
    apply_ink(0, 4, INK_L_GRAD, 0, 0);
    EXPECT_EQ(red_of(frame(0, 4)), 153);
}

TEST_F(InkPatternTest, LinearGradientWithoutLengthIsTheStartColour)
{
    spectrum = {.spectrum_start = 0x203040, .spectrum_end = 0xffffff, .spectrum_fold = 2};
    for (const int repeat : {0, 1}) {
        set_option(INK_L_GRAD, 0, repeat);
        set_nodes(INK_L_GRAD, {5, 5, 5, 5});
        painted(INK_L_GRAD, 0);
        EXPECT_EQ(frame(0, 0), 0x203040);
        EXPECT_EQ(frame(11, 0), 0x203040);
    }
}

TEST_F(InkPatternTest, RadialGradientHoldsOrRepeatsBeyondItsRim)
{
    set_nodes(INK_R_GRAD, {4, 4, 7, 4});
    EXPECT_EQ(painted(INK_R_GRAD, 3), (Reds{252, 191, 127, 63, 63, 63, 127, 191, 252, 252, 252, 252}));
    set_option(INK_R_GRAD, 0, 1);
    EXPECT_EQ(painted(INK_R_GRAD, 3), (Reds{0, 191, 127, 63, 63, 63, 127, 191, 0, 63, 127, 191}));
    set_option(INK_R_GRAD, 0, 0);
    set_nodes(INK_R_GRAD, {4, 0, 4, 0}); // the rim on the centre: all else has the end colour
    EXPECT_EQ(painted(INK_R_GRAD, 0), (Reds{252, 252, 252, 252, 0, 252, 252, 252, 252, 252, 252, 252}));
}

TEST_F(InkPatternTest, SoftGradientMixesOverTheSource)
{
    set_option(INK_H_GRAD, GRADIENT_START, 3);
    set_option(INK_H_GRAD, GRADIENT_END, 6);
    begin(Bitmap(width, 1, 0x6496c8));
    apply_ink(5, 0, INK_H_GRAD, 0, 199);
    EXPECT_EQ(frame(5, 0), 0x6495c7);
    apply_ink(5, 0, INK_H_GRAD, 0, 1);
    EXPECT_EQ(frame(5, 0), 0x79848f);
    apply_ink(5, 0, INK_H_GRAD, 0, 100); // weaker
    apply_ink(5, 0, INK_H_GRAD, 0, 200);
    EXPECT_EQ(frame(5, 0), 0x79848f);
    EXPECT_EQ(coverage(5, 0), 199);
    apply_ink(5, 0, INK_H_GRAD, 0, 0);
    EXPECT_EQ(frame(5, 0), 0x7f7f7f);
}

TEST_F(InkPatternTest, TileRepeatsTheCelInAllDirectionsFromItsOrigin)
{
    const test::Legend legend{{'.', 0x000000}, {'a', 0x111111}, {'b', 0x222222}, {'c', 0x333333},
                              {'d', 0x444444}, {'e', 0x555555}, {'m', 0x0a0a0a}};
    store.cel_source_bitmap = test::from_text({"abc", "dem"}, legend);
    toolbox.mask_color = 0x0b0a0a; // the last pixel is within 2 of it
    for (const int whole_repeats : {0, 1, -1}) {
        cel.cel_origin_x = 4 + 3 * whole_repeats;
        cel.cel_origin_y = 1 + 2 * whole_repeats;
        begin(Bitmap(8, 4));
        for (int y = 0; y < 4; ++y)
            span_ink(0, 7, y, INK_TILE, 0xffffff);
        EXPECT_EQ(test::to_text(store.frame_bitmap, legend),
                  (std::vector<std::string>{".de.de.d", "cabcabca", ".de.de.d", "cabcabca"}));
    }
}

TEST_F(InkPatternTest, TileAndScrapeByTipValue)
{
    store.cel_source_bitmap = Bitmap(1, 1, 0x40c0f0);
    begin(Bitmap(1, 1, 0x6496c8));
    apply_ink(0, 0, INK_TILE, 0, 0);
    EXPECT_EQ(coverage(0, 0), 0);
    apply_ink(0, 0, INK_TILE, 0, 200);
    EXPECT_EQ(frame(0, 0), 0x40c0f0);
    row(store.frame_bitmap, 0)[0] = 0x000000; // a soft stamp blends over what stands
    apply_ink(0, 0, INK_TILE, 0, 100);
    EXPECT_EQ(frame(0, 0), blend_pixel(0x000000, 0x40c0f0, 100));
    EXPECT_EQ(coverage(0, 0), 100);
    // SCRAPE is GLASS in the cel's colour, over the stroke source, and has no mask.
    toolbox.mask_color = 0x40c0f0;
    set_option(INK_SCRAPE, 0, 128);
    for (const auto& [tip_value, expected] :
         {std::pair{0, 0x51aadb}, {1, 0x55a6d6}, {100, 0x5c9ecf}, {199, 0x6496c8}, {200, 0x6496c8}}) {
        begin(Bitmap(1, 1, 0x6496c8));
        apply_ink(0, 0, INK_SCRAPE, 0, tip_value);
        EXPECT_EQ(frame(0, 0), expected) << tip_value;
    }
}

TEST_F(InkPatternTest, WithoutACelNothingHappens)
{
    set_option(INK_SCRAPE, 0, 255);
    begin(Bitmap(1, 1, 0x6496c8));
    apply_ink(0, 0, INK_TILE, 0, 0);
    apply_ink(0, 0, INK_SCRAPE, 0, 0);
    EXPECT_EQ(frame(0, 0), 0x6496c8);
}

} // namespace
} // namespace kelu
