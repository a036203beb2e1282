// SPDX-License-Identifier: MIT
// Inks that change one pixel by a formula: each against values worked out apart from the program, at two
// strengths and tip values 0, 1, 100, 199 and 200, and by the rules of the coverage.
#include "support/ink_test.h"

#include "runtime/pixels.h"
#include <array>
#include <cmath>

namespace kelu {
namespace {

using test::InkTest;

constexpr int source = 0x6496c8;      // 100, 150, 200
constexpr int color = 0x40c0f0;       // 64, 192, 240
constexpr int brush_color = 0xe06020; // 224, 96, 32

constexpr std::array tip_values{0, 1, 100, 199, 200};

/// What one dab on an untouched pixel leaves in the frame and in the coverage, for each of `tip_values`.
struct Expected {
    int ink, strength;
    std::array<int, tip_values.size()> frame, coverage;
};

constexpr Expected one_pixel[] = {
    {INK_OPAQUE, 128, {0x40c0f0, 0x47b6e6, 0x55a5d7, 0x6395c7, 0x6496c8}, {0, 199, 100, 1, 0}},
    {INK_ADD, 128, {0x84f6ff, 0x83f5ff, 0x74c6ff, 0x6496c8, 0x6496c8}, {200, 199, 100, 1, 0}},
    {INK_ADD, 255, {0xa4ffff, 0xa3ffff, 0x84f6ff, 0x6496c9, 0x6496c8}, {200, 199, 100, 1, 0}},
    {INK_SUB, 128, {0x43354f, 0x443650, 0x53658b, 0x6395c7, 0x6496c8}, {200, 199, 100, 1, 0}},
    {INK_SUB, 255, {0x240000, 0x240000, 0x443650, 0x6395c6, 0x6496c8}, {200, 199, 100, 1, 0}},
    {INK_BRIGHT, 128, {0xb1cae3, 0x9fbedc, 0x82aad2, 0x6496c8, 0x6496c8}, {128, 99, 50, 0, 0}},
    {INK_BRIGHT, 255, {0xffffff, 0xdce7f2, 0xa0bedd, 0x6495c7, 0x6496c8}, {255, 199, 100, 1, 0}},
    {INK_DARK, 128, {0x314a63, 0x3c5b79, 0x5078a0, 0x6496c8, 0x6496c8}, {128, 99, 50, 0, 0}},
    {INK_DARK, 255, {0x000000, 0x15202b, 0x3c5a79, 0x6394c6, 0x6496c8}, {255, 199, 100, 1, 0}},
    {INK_GLASS, 128, {0x51aadb, 0x55a6d6, 0x5c9ecf, 0x6496c8, 0x6496c8}, {128, 99, 50, 0, 0}},
    {INK_GLASS, 255, {0x40c0f0, 0x47b6e6, 0x55a5d7, 0x6395c7, 0x6496c8}, {255, 199, 100, 1, 0}},
    {INK_XOR, 128, {0x245638, 0x245638, 0x3d6f70, 0x5587a8, 0x6496c8}, {200, 199, 100, 1, 0}},
    {INK_GRAY, 128, {0x7c95ae, 0x7695b3, 0x6d95bd, 0x6496c8, 0x6496c8}, {128, 99, 50, 0, 0}},
    {INK_GRAY, 255, {0x969696, 0x8a95a0, 0x7795b4, 0x6495c7, 0x6496c8}, {255, 199, 100, 1, 0}},
    {INK_PULL, 128, {0xc064c7, 0x8782c6, 0x768bc7, 0x6496c8, 0x6496c8}, {128, 99, 50, 0, 0}},
    {INK_PULL, 255, {0xc78664, 0xb08879, 0x8a8ea0, 0x6495c6, 0x6496c8}, {255, 199, 100, 1, 0}},
    {INK_SPARK, 128, {0x2f96fc, 0x4996e2, 0x5c95ce, 0x6496c8, 0x6496c8}, {128, 127, 64, 0, 0}},
    {INK_SPARK, 255, {0x2d96ff, 0x2c95fe, 0x4996e2, 0x6395c7, 0x6496c8}, {255, 253, 127, 1, 0}},
};

TEST_F(InkTest, OneDabByStrengthAndTipValue)
{
    toolbox.brush_color = brush_color;
    for (const Expected& row : one_pixel) {
        set_option(row.ink, 0, row.strength);
        for (std::size_t i = 0; i < tip_values.size(); ++i) {
            SCOPED_TRACE(testing::Message()
                         << "ink " << row.ink << " strength " << row.strength << " tip value " << tip_values[i]);
            begin(Bitmap(3, 3, source));
            apply_ink(1, 1, row.ink, color, tip_values[i]);
            EXPECT_EQ(frame(1, 1), row.frame[i]);
            EXPECT_EQ(coverage(1, 1), row.coverage[i]);
            EXPECT_EQ(frame(0, 1), source);
            EXPECT_EQ(frame(1, 2), source);
        }
    }
}

TEST_F(InkTest, WithinOneOperationTheStrongestStampCounts)
{
    toolbox.brush_color = brush_color;
    for (const int ink : {INK_ADD, INK_BRIGHT, INK_DARK, INK_GLASS, INK_PULL, INK_SPARK, INK_SUB, INK_XOR}) {
        SCOPED_TRACE(ink);
        set_option(ink, 0, 200);
        begin(Bitmap(3, 3, source));
        apply_ink(1, 1, ink, color, 60);
        const int strong = frame(1, 1);
        EXPECT_NE(strong, source);
        begin(Bitmap(3, 3, source));
        for (const int tip_value : {150, 60, 60, 120, 199, 200}) // weaker, the strongest, and others after it
            apply_ink(1, 1, ink, color, tip_value);
        EXPECT_EQ(frame(1, 1), strong);
        begin(); // a new operation starts from what the last one left
        apply_ink(1, 1, ink, color, 60);
        EXPECT_NE(coverage(1, 1), 0);
        if (ink == INK_XOR) continue; // two soft strokes needn't move on
        EXPECT_NE(frame(1, 1), source);
    }
}

TEST_F(InkTest, OpaqueBuildsUpItsRimAndPaintsOverItAtFullStrength)
{
    begin(Bitmap(1, 1, 0x000000));
    apply_ink(0, 0, INK_OPAQUE, 0xc8c8c8, 150); // alpha 50: 200 x 51 >> 8
    EXPECT_EQ(frame(0, 0), 0x272727);
    apply_ink(0, 0, INK_OPAQUE, 0xc8c8c8, 100); // alpha 100 over what stands: (39 x 155 >> 8) + (200 x 101 >> 8)
    EXPECT_EQ(frame(0, 0), 0x656565);
    apply_ink(0, 0, INK_OPAQUE, 0xc8c8c8, 120); // weaker: nothing
    EXPECT_EQ(frame(0, 0), 0x656565);
    apply_ink(0, 0, INK_OPAQUE, 0x123456, 0);
    EXPECT_EQ(frame(0, 0), 0x123456);
    EXPECT_EQ(coverage(0, 0), 100);
}

TEST_F(InkTest, TwoStrokesOfXorCancel)
{
    begin(Bitmap(1, 1, source));
    apply_ink(0, 0, INK_XOR, color, 0);
    apply_ink(0, 0, INK_XOR, color, 0); // the same stroke: fails the test of the coverage
    EXPECT_EQ(frame(0, 0), source ^ color);
    begin();
    apply_ink(0, 0, INK_XOR, color, 0);
    EXPECT_EQ(frame(0, 0), source);
}

TEST_F(InkTest, GrayTakesItsGreyFromTheFrameUnderASoftTip)
{
    set_option(INK_GRAY, 0, 255);
    begin(Bitmap(1, 1, source));
    row(store.frame_bitmap, 0)[0] = 0x000000;
    apply_ink(0, 0, INK_GRAY, color, 100); // black over the source at alpha 100
    EXPECT_EQ(frame(0, 0), blend_pixel(source, 0x000000, 100));
    begin(Bitmap(1, 1, source));
    row(store.frame_bitmap, 0)[0] = 0x000000;
    apply_ink(0, 0, INK_GRAY, color, 0); // the source's own grey
    EXPECT_EQ(frame(0, 0), 0x969696);
}

TEST_F(InkTest, PullGoesTheShorterWayRound)
{
    struct Case {
        int brush, source;
        std::array<int, 3> at_64_128_255;
    };
    constexpr Case cases[] = {
        {0xff0000, 0xf000ff, {0xff00ca, 0xff0086, 0xff0000}}, // over the wrap, upwards
        {0xf000ff, 0xff2000, {0xff002c, 0xff0079, 0xec00ff}}, // over the wrap, downwards
        {0x00ff80, 0xff4000, {0xffcf00, 0x9fff00, 0x00ff7b}},
        {0x0000ff, 0xffff00, {0x3fff00, 0x00ff7f, 0x0003ff}}, // 127: still the direct way
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.source);
        toolbox.brush_color = test.brush;
        std::array<int, 3> seen{};
        for (std::size_t i = 0; i < seen.size(); ++i) {
            set_option(INK_PULL, 0, std::array{64, 128, 255}[i]);
            begin(Bitmap(1, 1, test.source));
            apply_ink(0, 0, INK_PULL, 0x777777, 0); // the colour argument plays no part
            seen[i] = frame(0, 0);
        }
        EXPECT_EQ(seen, test.at_64_128_255);
    }
}

TEST_F(InkTest, GrainRollsItsPlaceAndItsWeight)
{
    constexpr int side = 200;
    constexpr int strength = 40;
    set_option(INK_GRAIN, 0, strength);
    for (const int frequency : {0, 50, 100}) {
        set_option(INK_GRAIN, 1, frequency);
        begin(Bitmap(side, side, 0x000000));
        for (int y = 0; y < side; ++y)
            span_ink(0, side - 1, y, INK_GRAIN, 0xffffff);
        int touched = 0;
        std::array<int, strength> weights{};
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                if (coverage(x, y) == 0) continue;
                ++touched;
                ASSERT_EQ(coverage(x, y), strength);
                const int alpha = frame(x, y) == 0 ? 0 : red_of(frame(x, y)); // 255 x (alpha + 1) >> 8 is alpha
                ASSERT_LT(alpha, strength);
                ++weights[static_cast<std::size_t>(alpha)];
            }
        }
        // A roll of 0 to 99 passes up to the frequency: one of a hundred even at 0.
        const double share = std::min(frequency + 1, 100) / 100.0;
        EXPECT_NEAR(touched, side * side * share, 5 * std::sqrt(side * side * share)) << frequency;
        if (frequency < 100) continue;
        EXPECT_EQ(touched, side * side);
        for (const int count : weights)
            EXPECT_NEAR(count, side * side / strength, 5 * std::sqrt(side * side / strength));
    }
}

TEST_F(InkTest, GrainUnderASoftTipKeepsTheHighestRollAndAtStrengthZeroNothing)
{
    set_option(INK_GRAIN, 0, 255);
    set_option(INK_GRAIN, 1, 100);
    begin(Bitmap(1, 1, 0x000000));
    int last = 0;
    for (int i = 0; i < 2000; ++i) {
        apply_ink(0, 0, INK_GRAIN, 0xffffff, 100);
        ASSERT_GE(coverage(0, 0), last);
        last = coverage(0, 0);
        ASSERT_EQ(frame(0, 0), last == 0 ? 0 : blend_pixel(0, 0xffffff, last));
    }
    EXPECT_EQ(last, 99); // 254 / 255 x 100, the highest roll
    apply_ink(0, 0, INK_GRAIN, 0xffffff, 200);
    EXPECT_EQ(coverage(0, 0), last);
    set_option(INK_GRAIN, 0, 0);
    begin(Bitmap(1, 1, source));
    apply_ink(0, 0, INK_GRAIN, 0xffffff, 0);
    apply_ink(0, 0, INK_GRAIN, 0xffffff, 100);
    EXPECT_EQ(frame(0, 0), source);
}

} // namespace
} // namespace kelu
