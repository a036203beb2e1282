// SPDX-License-Identifier: MIT
// Reduction to 256 colours: exact palettes, and the network's integers, which stand in a picture.
#include "imagefile/reduce.h"

#include "imagefile/neural.h"
#include "runtime/pixels.h"
#include "support/golden.h"
#include "support/pictures.h"
#include <cstring>
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

TEST(neural, palettes_are_those_that_were_worked_out_once)
{
    // 499 columns: the first step would stay in its column and isn't taken. 7 x 3: fewer samples than cycles.
    const std::tuple<int, int, int> cases[] = {{61, 47, 1}, {61, 47, 10}, {499, 9, 1},
                                               {7, 3, 1},   {7, 3, 10},   {1, 1, 1}};
    const Bitmap strips(256, static_cast<int>(std::size(cases)));
    for (int i = 0; const auto& [w, h, factor] : cases) {
        PALETTE palette;
        quantize_neural(colorful(w, h), factor, palette);
        for (int k = 0; k < 256; ++k)
            row(strips, i)[k] = pack_rgb(palette[k].r * 4, palette[k].g * 4, palette[k].b * 4);
        ++i;
    }
    EXPECT_TRUE(matches_golden(strips, "neural_palettes"));
}

TEST(reduce, exact_colours_keep_the_order_of_first_appearance)
{
    PALETTE palette;
    std::fill(std::begin(palette), std::end(palette), RGB{1, 2, 3, 0});
    const int colors[] = {0xfc8040, 0x000000, 0x04080c};
    const Bitmap picture = paint(6, 2, [&](int x, int y) {
        return colors[std::min(2, x / 2)] | static_cast<int>(static_cast<uint32_t>(x + y) << 24); // alpha plays no part
    });
    EXPECT_EQ(quantize_exact(picture, palette), 3);
    EXPECT_EQ(palette[0].r, 63);
    EXPECT_EQ(palette[0].g, 32);
    EXPECT_EQ(palette[0].b, 16);
    EXPECT_EQ(palette[1].r + palette[1].g + palette[1].b, 0);
    EXPECT_EQ(palette[2].b, 3);
    EXPECT_EQ(palette[255].g, 0);

    const auto ladder = [](int count) { return paint(count, 1, [](int x, int) { return x * 0x000101; }); };
    EXPECT_EQ(quantize_exact(ladder(256), palette), 256);
    const Bitmap many = paint(257, 1, [](int x, int) { return x * 3; });
    const unsigned char before = palette[200].g;
    EXPECT_EQ(quantize_exact(many, palette), -1);
    EXPECT_EQ(palette[200].g, before);
}

TEST(reduce, the_option_picks_the_way)
{
    const Bitmap two = paint(40, 40, [](int x, int) { return x < 20 ? 0xffffff : 0x204060; });
    const Bitmap many = colorful(40, 40);
    PALETTE fast, good, best, other;
    reduce_colors(two, REDUCE_BEST, best);
    EXPECT_EQ(best[0].r, 63);
    EXPECT_EQ(best[1].g, 0x40 >> 2);
    reduce_colors(two, REDUCE_GOOD, good); // the network, however few the colours
    quantize_neural(two, 10, other);
    EXPECT_EQ(std::memcmp(good, other, sizeof good), 0);
    reduce_colors(many, REDUCE_BEST, best);
    quantize_neural(many, 1, other);
    EXPECT_EQ(std::memcmp(best, other, sizeof best), 0);
    reduce_colors(two, REDUCE_FAST, fast);
    const signed char reserved[256] = {};
    std::fill(std::begin(other), std::end(other), RGB{});
    generate_optimized_palette(two, other, reserved);
    EXPECT_EQ(std::memcmp(fast, other, sizeof fast), 0);
}

} // namespace
} // namespace kelu
