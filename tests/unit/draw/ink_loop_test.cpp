// SPDX-License-Identifier: MIT
// All inks as pictures, the loops that carry an ink over a picture, and numbers and options from nowhere.
#include "draw/gradient.h"
#include "support/golden.h"
#include "support/ink_test.h"

#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/pixel_text.h"
#include <array>

namespace kelu {
namespace {

class InkLoopTest : public test::InkTest {
protected:
    /// A frame in which each pixel has its own colour, and options under which every ink leaves a mark.
    static void begin_scattered()
    {
        seed_random(7);
        begin(test::paint(24, 20, [](int x, int y) {
            return pack_rgb(x * 151 & 255, (x * 67 + y * 29) & 255, (y * 97 + x * y) & 255);
        }));
        toolbox.brush_color = 0x40c0f0;
        toolbox.mask_color = 0x102030;
        for (int ink = 0; ink < INK_COUNT; ++ink)
            set_option(ink, 0, 5);
        set_option(INK_GRAIN, 1, 50);
        set_option(INK_GLOW, 1, 3);
        store.cel_source_bitmap = Bitmap(3, 2, 0x80a0c0);
    }
    /// A tip with every value from 0 to 254.
    static TipCell ramp()
    {
        TipCell tip{};
        for (std::size_t i = 0; i < tip.values.size(); ++i)
            tip.values[i] = static_cast<uint8_t>(i);
        return tip;
    }
};

TEST_F(InkLoopTest, InksLookAsTheyDid)
{
    // Each ink at three strengths, under a tip with every value and along a row.
    constexpr std::array strengths{1, 128, 255};
    const Bitmap sheet(5 * 24 * 3, 5 * 20);
    for (int ink = 0; ink < INK_COUNT; ++ink) {
        for (int i = 0; i < 3; ++i) {
            begin_scattered();
            set_option(ink, 0, strengths[static_cast<std::size_t>(i)]);
            stamp_ink(12, 10, ink, 0x40c0f0, ramp());
            span_ink(2, 21, 18, ink, 0x40c0f0);
            blit(store.frame_bitmap, sheet, 0, 0, (ink % 5 * 3 + i) * 24, ink / 5 * 20, 24, 20);
        }
    }
    EXPECT_TRUE(test::matches_golden(sheet, "inks"));
}

/// Areas, gaps, specks, steps and rims: what the inks that look at neighbours act on. At the corners differences that
/// are just large enough, and just not.
Bitmap shapes()
{
    const test::Legend legend{{'.', 0x000000}, {'#', 0xc08040}, {'~', 0xc48440}, {'w', 0xffffff},
                              {'n', 0x050505}, {'m', 0x060606}, {'g', 0x131313}, {'h', 0x141414}};
    return test::from_text({"w.#..#.....####...www..w", //
                            ".n....#.......##..wwwwm.", //
                            "~.#..#..####..##..n.m.g.", //
                            "#.......####......ww..hw", //
                            "..##.##.#####...........", //
                            "........#####...w...~...", //
                            "#######.######.........#", //
                            "#.....#.........#######.", //
                            "#.###.#.~~~~~..##~##~##.", //
                            "#.#.#.#.~###~.###.##.#..", //
                            "..###.#.~###~..##~##~#..", //
                            "g.....#.~~~~~...######.h"},
                           legend);
}

TEST_F(InkLoopTest, InksLookAsTheyDidOnShapes)
{
    // Each ink with four values of its first option on every pixel; gradients hold, repeat, fold and go in bands.
    constexpr std::array values{0, 1, 5, 200};
    const Bitmap sheet(5 * 24 * 4, 5 * 12);
    for (int ink = 0; ink < INK_COUNT; ++ink) {
        for (int i = 0; i < 4; ++i) {
            begin_scattered();
            begin(shapes());
            toolbox.brush_color = 0xc08040;
            set_option(ink, 0, values[static_cast<std::size_t>(i)]);
            spectrum = {.spectrum_start = 0x102040, .spectrum_end = 0xf0a050, .spectrum_fold = i};
            for (const int gradient : {INK_H_GRAD, INK_V_GRAD, INK_L_GRAD, INK_R_GRAD}) {
                set_option(gradient, 2, i == 3 ? 3 : 1);
                for (int column = 0; column < 4; ++column)
                    set_option(gradient, GRADIENT_START_X + column, std::array{7, 3, 15, 8}[std::size_t(column)]);
            }
            update_gradient_geometry();
            for (int y = 0; y < 12; ++y)
                span_ink(0, 23, y, ink, 0x40c0f0);
            blit(store.frame_bitmap, sheet, 0, 0, (ink % 5 * 4 + i) * 24, ink / 5 * 12, 24, 12);
        }
    }
    EXPECT_TRUE(test::matches_golden(sheet, "inks_on_shapes"));
}

TEST_F(InkLoopTest, NumbersThatAreNoInkDoNothing)
{
    begin_scattered();
    const Bitmap before = store.frame_bitmap.copy();
    for (const int ink : {-1, int(INK_COUNT), 99}) {
        apply_ink(3, 3, ink, 0xffffff, 0);
        stamp_ink(3, 3, ink, 0xffffff, ramp());
        span_ink(0, 9, 3, ink, 0xffffff);
    }
    EXPECT_EQ(test::difference(store.frame_bitmap, before), "");
}

TEST_F(InkLoopTest, SpriteLeavesMagentaOutAndCarriesItsOwnColours)
{
    const test::Legend legend{{'.', 0x000000}, {'a', 0x101010}, {'b', 0x202020}, {'t', 0xff00ff}};
    const Bitmap picture = test::from_text({"ab", "tb"}, legend);
    toolbox.ink_slots[0] = INK_OPAQUE;
    begin(Bitmap(3, 3));
    ink_sprite(picture, -1, 0); // cut at the left
    ink_sprite(picture, 1, 1);
    ink_sprite(picture, 2, 2);
    ink_sprite(picture, 9, -9);
    EXPECT_EQ(test::to_text(store.frame_bitmap, legend), (std::vector<std::string>{"b..", "bab", "..a"}));
    toolbox.ink_slots[0] = INK_BRIGHT; // brightens by the picture's shape, whatever its colours
    set_option(INK_BRIGHT, 0, 255);
    begin(Bitmap(2, 2));
    ink_sprite(picture, 0, 0);
    EXPECT_EQ((std::array{frame(0, 0), frame(1, 0), frame(0, 1), frame(1, 1)}),
              (std::array{0xffffff, 0xffffff, 0x000000, 0xffffff}));
}

TEST_F(InkLoopTest, BelowShowsWhereTheFrameHasItsMaskColour)
{
    toolbox.mask_color = 0x808080;
    toolbox.ink_slots[0] = INK_OPAQUE;
    Bitmap picture(5, 1);
    constexpr std::array before{0x808080, 0x84807c, 0x858080, 0x80807b, 0x123456};
    std::copy(before.begin(), before.end(), row(picture, 0));
    begin(std::move(picture));
    ink_below(Bitmap(6, 2, 0x010203), 0, 0);
    EXPECT_EQ((std::array{frame(0, 0), frame(1, 0), frame(2, 0), frame(3, 0), frame(4, 0)}),
              (std::array{0x010203, 0x010203, 0x858080, 0x80807b, 0x123456}));
}

TEST_F(InkLoopTest, OptionsFromForeignFilesAreBroughtIntoRange)
{
    for (const int wild : {-2000000000, 2000000000}) {
        for (int ink = 0; ink < INK_COUNT; ++ink) {
            SCOPED_TRACE(ink);
            begin_scattered();
            for (int column = 0; column < option_columns; ++column)
                set_option(ink, column, wild);
            cel.cel_origin_x = cel.cel_origin_y = wild;
            toolbox.ink_derived[INK_L_GRAD] = {0, 1e30F, 1, 1};
            span_ink(0, 23, 10, ink, 0x40c0f0);
            for (int x = 0; x < 24; ++x)
                ASSERT_EQ(frame(x, 10) & ~0xffffff, 0);
        }
    }
}

} // namespace
} // namespace kelu
