// SPDX-License-Identifier: MIT
// All inks as pictures, the loops that carry an ink over a picture, numbers and options from nowhere, and the rules
// that pictures don't show: the coverage within a stroke, what neighbours are read from, the cel as a texture.
#include "draw/gradient.h"
#include "runtime/pixels.h"
#include "support/golden.h"
#include "support/ink_test.h"
#include "support/pictures.h"
#include "support/pixel_text.h"
#include <array>

namespace kelu {
namespace {

using Lines = std::vector<std::string>;

constexpr int source = 0x6496c8;      // 100, 150, 200
constexpr int color = 0x40c0f0;       // 64, 192, 240
constexpr int brush_color = 0xe06020; // 224, 96, 32

class Inks : public test::InkTest {
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

TEST_F(Inks, InksLookAsTheyDid)
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

TEST_F(Inks, InksLookAsTheyDidOnShapes)
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

TEST_F(Inks, NumbersThatAreNoInkDoNothing)
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

TEST_F(Inks, SpriteLeavesMagentaOutAndCarriesItsOwnColours)
{
    const test::Legend legend{{'.', 0x000000}, {'a', 0x101010}, {'b', 0x202020}, {'t', 0xff00ff}};
    const Bitmap picture = test::from_text({"ab", "tb"}, legend);
    toolbox.ink_slots[0] = INK_OPAQUE;
    begin(Bitmap(3, 3));
    ink_sprite(picture, -1, 0); // cut at the left
    ink_sprite(picture, 1, 1);
    ink_sprite(picture, 2, 2);
    ink_sprite(picture, 9, -9);
    EXPECT_EQ(test::to_text(store.frame_bitmap, legend), (Lines{"b..", "bab", "..a"}));
    toolbox.ink_slots[0] = INK_BRIGHT; // brightens by the picture's shape, whatever its colours
    set_option(INK_BRIGHT, 0, 255);
    begin(Bitmap(2, 2));
    ink_sprite(picture, 0, 0);
    EXPECT_EQ((std::array{frame(0, 0), frame(1, 0), frame(0, 1), frame(1, 1)}),
              (std::array{0xffffff, 0xffffff, 0x000000, 0xffffff}));
}

TEST_F(Inks, BelowShowsWhereTheFrameHasItsMaskColour)
{
    toolbox.mask_color = 0x808080;
    toolbox.ink_slots[0] = INK_OPAQUE;
    const test::Legend legend{{'m', 0x808080}, {'n', 0x84807c}, {'a', 0x858080}, {'b', 0x80807b}, {'.', 0x010203}};
    begin(test::from_text({"mnab"}, legend));
    ink_below(Bitmap(6, 2, 0x010203), 0, 0);
    EXPECT_EQ(test::to_text(store.frame_bitmap, legend), Lines{"..ab"});
}

TEST_F(Inks, OptionsFromForeignFilesAreBroughtIntoRange)
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

constexpr int side = 5;
/// A picture without any order: all channels of all pixels differ.
Bitmap scattered()
{
    return test::paint(side, side, [](int x, int y) {
        return pack_rgb((x * 53 + y * 31 + 20) & 255, (x * 17 + y * 71 + 90) & 255, (x * 97 + y * 13 + 5) & 255);
    });
}

TEST_F(Inks, WithinOneOperationTheStrongestStampCounts)
{
    toolbox.brush_color = brush_color;
    for (const int ink :
         {INK_ADD, INK_BRIGHT, INK_DARK, INK_EMBOSS, INK_GLASS, INK_PULL, INK_SOFTEN, INK_SPARK, INK_SUB, INK_XOR}) {
        SCOPED_TRACE(ink);
        set_option(ink, 0, 200);
        begin(scattered());
        const int before = frame(2, 2);
        apply_ink(2, 2, ink, color, 60);
        const int strong = frame(2, 2);
        EXPECT_NE(strong, before);
        begin(scattered());
        for (const int tip_value : {150, 60, 60, 120, 199, 200}) // weaker, the strongest, and others after it
            apply_ink(2, 2, ink, color, tip_value);
        EXPECT_EQ(frame(2, 2), strong);
        begin(); // a new operation starts from what the last one left
        apply_ink(2, 2, ink, color, 60);
        EXPECT_NE(coverage(2, 2), 0);
        if (ink == INK_XOR) continue; // two soft strokes needn't move on
        EXPECT_NE(frame(2, 2), before);
    }
}

TEST_F(Inks, OpaqueBuildsUpItsRimAndPaintsOverItAtFullStrength)
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

TEST_F(Inks, GrainUnderASoftTipKeepsTheHighestRollAndAtStrengthZeroNothing)
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

TEST_F(Inks, SourceOfAnotherSizeIsReadWhereItHasPixels)
{
    set_option(INK_SOFTEN, 0, 255);
    const Bitmap picture = scattered();
    begin(picture.copy());
    apply_ink(2, 2, INK_SOFTEN, 0, 0);
    apply_ink(4, 4, INK_SOFTEN, 0, 0);
    const int middle = frame(2, 2);
    const int corner = frame(4, 4);
    begin(Bitmap(4, 4));
    store.frame_bitmap = picture.copy(); // the frame has grown under the older copy, which holds other pixels
    blit(picture, stroke_source(), 0, 0, 0, 0, 4, 4);
    store.coverage_bitmap = Bitmap(side, side);
    apply_ink(2, 2, INK_SOFTEN, 0, 0);
    apply_ink(4, 4, INK_SOFTEN, 0, 0);
    EXPECT_EQ(frame(2, 2), middle);
    EXPECT_EQ(frame(4, 4), corner);
}

TEST_F(Inks, InksWithoutTipValueActOnTheWholeCell)
{
    toolbox.brush_color = 0xffffff;
    set_option(INK_CLOSE, 0, 5);
    Bitmap picture(21, 19);
    row(picture, 2)[3] = row(picture, 2)[5] = 0xffffff; // the gap at (4, 2) is under the tip's corner cell
    begin(std::move(picture));
    TipCell empty;
    empty.values.fill(255);
    stamp_ink(12, 9, INK_CLOSE, 0, empty);
    EXPECT_EQ(frame(4, 2), 0xffffff);
}

TEST_F(Inks, LinearGradientWithoutLengthIsTheStartColour)
{
    spectrum = {.spectrum_start = 0x203040, .spectrum_end = 0xffffff, .spectrum_fold = 2};
    for (const int repeat : {0, 1}) {
        set_option(INK_L_GRAD, 0, repeat);
        for (int column = GRADIENT_START_X; column <= GRADIENT_END_Y; ++column)
            set_option(INK_L_GRAD, column, 5);
        update_gradient_geometry();
        begin(Bitmap(12, 1));
        span_ink(0, 11, 0, INK_L_GRAD, 0);
        EXPECT_EQ(frame(0, 0), 0x203040);
        EXPECT_EQ(frame(11, 0), 0x203040);
    }
}

TEST_F(Inks, TileRepeatsTheCelInAllDirectionsFromItsOrigin)
{
    set_option(INK_SCRAPE, 0, 255);
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
        EXPECT_EQ(test::to_text(store.frame_bitmap, legend), (Lines{".de.de.d", "cabcabca", ".de.de.d", "cabcabca"}));
    }
    store.cel_source_bitmap = {};
    begin(Bitmap(1, 1, source));
    apply_ink(0, 0, INK_TILE, 0, 0);
    apply_ink(0, 0, INK_SCRAPE, 0, 0);
    EXPECT_EQ(frame(0, 0), source) << "nothing without a cel";
}

} // namespace
} // namespace kelu
