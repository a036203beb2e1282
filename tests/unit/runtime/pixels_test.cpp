// SPDX-License-Identifier: MIT
// Colour arithmetic at its ends, its roundings, and the clips; the generator against the reference sequence.
#include "runtime/pixels.h"
#include "runtime/random.h"
#include "support/pictures.h"
#include "support/pixel_text.h"
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace kelu {

using test::from_text;
using test::to_text;

TEST(Pixels, BlendRectWeighsClipsAndFills)
{
    Bitmap picture(4, 3, 0x0000ff);
    blend_rect(picture, -1, -1, 3, 2, 0xff8000, 128);
    // (255 x 129 >> 8, 128 x 129 >> 8, 255 x 127 >> 8), each side truncated by itself.
    EXPECT_EQ(to_text(picture, {{'b', 0x0000ff}, {'m', 0x80407e}}), (std::vector<std::string>{"mmbb", "bbbb", "bbbb"}));
    blend_rect(picture, 2, 1, 100, 100, 0x123456, 255);
    blend_rect(picture, 0, 0, 4, 3, 0xffffff, 0);
    blend_rect(picture, 0, 0, 4, 3, 0xffffff, -5);
    EXPECT_EQ(to_text(picture, {{'b', 0x0000ff}, {'m', 0x80407e}, {'f', 0x123456}}),
              (std::vector<std::string>{"mmbb", "bbff", "bbff"}));
    row(picture, 0)[0] = static_cast<int>(0xaa102030U);
    blend_rect(picture, 0, 0, 1, 1, 0x102030, 254);
    EXPECT_EQ(row(picture, 0)[0] >> 24, 0) << "a blended pixel has no top byte";
}

TEST(Pixels, BlendSpriteLeavesMagentaAndHasAnExactMiddle)
{
    const test::Legend legend{{'.', mask_magenta}, {'w', 0xffffff}, {'k', 0}, {'g', 0x7f7f7f}, {'q', 0x3f3f3f}};
    Bitmap sprite = from_text({"w.", ".w"}, legend);
    Bitmap target(3, 3);
    blend_sprite(sprite, target, 1, 1, 127);
    EXPECT_EQ(to_text(target, legend), (std::vector<std::string>{"kkk", "kgk", "kkg"}));
    blend_sprite(sprite, target, -1, 0, 64);
    EXPECT_EQ(to_text(target, legend), (std::vector<std::string>{"kkk", "qgk", "kkg"})) << "255 x 64 >> 8";
    blend_sprite(sprite, target, 2, 2, 255);
    blend_sprite(sprite, target, 0, 0, 0);
    EXPECT_EQ(to_text(target, legend), (std::vector<std::string>{"kkk", "qgk", "kkw"}));
    EXPECT_EQ(blend_sprite_pixel(0xff8040, 0x004080, 100), 0x9b6759) << "falling channels round down";
}

TEST(Pixels, DownscaleTakesCeilingsOfBoxMeans)
{
    Bitmap quad(2, 2);
    row(quad, 0)[1] = 0x010203;
    Bitmap one(3, 3, 0x222222);
    downscale_bitmap(quad, one, 1, 1, 1, 1);
    EXPECT_EQ(row(one, 1)[1], 0x010101) << "1/4, 2/4 and 3/4 round up";
    EXPECT_EQ(row(one, 0)[0], 0x222222);

    const Bitmap strip = test::paint(5, 1, [](int x, int) { return x; });
    const Bitmap shrunk(3, 1); // a width that doesn't divide: boxes of 1 x 1 start at 0, trunc(5/3), trunc(10/3)
    downscale_bitmap(strip, shrunk, 0, 0, 3, 1);
    EXPECT_EQ(std::vector(row(shrunk, 0), row(shrunk, 0) + 3), (std::vector{0, 1, 3}));
}

TEST(Bitmaps, RefuseSizesThatCannotBe)
{
    EXPECT_FALSE(Bitmap(0, 5));
    EXPECT_FALSE(Bitmap(5, -1));
    EXPECT_FALSE(Bitmap(40000, 2));
    EXPECT_FALSE(Bitmap(32767, 32767)) << "its bytes would not fit an int";
    EXPECT_TRUE(Bitmap(32767, 1));
    Bitmap first(2, 2, 7);
    Bitmap second = std::move(first);
    EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move): that it is empty is the point
    EXPECT_EQ(row(second.copy(), 1)[1], 7);
}

TEST(Random, ReachesAllBelowTheBoundInTheReferenceSequence)
{
    // First outputs of MT19937 seeded with 5489, as 16 low bits: rnd(65536) masks the draw and never rejects.
    seed_random(5489);
    for (const uint32_t draw : {3499211612U, 581869302U, 3890346734U})
        EXPECT_EQ(rnd(65536), draw & 0xffff);
    std::set<int> drawn;
    for (int i = 0; i < 1000; ++i)
        drawn.insert(rnd(5));
    EXPECT_EQ(drawn, (std::set{0, 1, 2, 3, 4}));
    for (const int bound : {0, 1, -7})
        EXPECT_EQ(rnd(bound), 0);
}

} // namespace kelu
