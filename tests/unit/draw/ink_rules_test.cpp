// SPDX-License-Identifier: MIT
// Rules of the inks that pictures don't show: the coverage within a stroke, what neighbours are read from, gradients
// without length, the cel as a texture. What each ink makes of a pixel stands in the pictures of all inks.
#include "draw/gradient.h"
#include "support/ink_test.h"

#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/pixel_text.h"

namespace kelu {
namespace {

using test::InkTest;

constexpr int source = 0x6496c8;      // 100, 150, 200
constexpr int color = 0x40c0f0;       // 64, 192, 240
constexpr int brush_color = 0xe06020; // 224, 96, 32

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

constexpr int side = 5;
/// A picture without any order: all channels of all pixels differ.
Bitmap scattered()
{
    return test::paint(side, side, [](int x, int y) {
        return pack_rgb((x * 53 + y * 31 + 20) & 255, (x * 17 + y * 71 + 90) & 255, (x * 97 + y * 13 + 5) & 255);
    });
}

/// The ink on every pixel of the frame, row by row.
void cover(int ink)
{
    for (int y = 0; y < store.frame_bitmap.height(); ++y)
        span_ink(0, store.frame_bitmap.width() - 1, y, ink, 0);
}

TEST_F(InkTest, FiltersReadThePictureBeforeTheStroke)
{
    for (const int ink : {INK_EMBOSS, INK_SOFTEN}) {
        set_option(ink, 0, 200);
        begin(scattered());
        apply_ink(2, 2, ink, 0, 0);
        const int alone = frame(2, 2);
        begin(scattered());
        cover(ink);
        EXPECT_EQ(frame(2, 2), alone);
        cover(ink); // passes again within the operation: the coverage holds it
        EXPECT_EQ(frame(2, 2), alone);
    }
}

TEST_F(InkTest, SourceOfAnotherSizeIsReadWhereItHasPixels)
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

TEST_F(InkTest, InksWithoutTipValueActOnTheWholeCell)
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

TEST_F(InkTest, LinearGradientWithoutLengthIsTheStartColour)
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

TEST_F(InkTest, TileRepeatsTheCelInAllDirectionsFromItsOrigin)
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

TEST_F(InkTest, WithoutACelNothingHappens)
{
    set_option(INK_SCRAPE, 0, 255);
    begin(Bitmap(1, 1, 0x6496c8));
    apply_ink(0, 0, INK_TILE, 0, 0);
    apply_ink(0, 0, INK_SCRAPE, 0, 0);
    EXPECT_EQ(frame(0, 0), 0x6496c8);
}

} // namespace
} // namespace kelu
