// SPDX-License-Identifier: MIT
// Inks that look at neighbours: worked values in the middle and in the corner, and their rules on small pictures.
#include "support/ink_test.h"

#include "runtime/pixels.h"
#include "support/pictures.h"
#include "support/pixel_text.h"
#include <array>
#include <cmath>
#include <map>

namespace kelu {
namespace {

using test::from_text;
using test::Legend;
using test::to_text;
using Lines = std::vector<std::string>;

class InkFilterTest : public test::InkTest {
protected:
    /// The ink at full strength on every pixel of the frame, row by row.
    static void cover(int ink, int color = 0)
    {
        for (int y = 0; y < store.frame_bitmap.height(); ++y)
            span_ink(0, store.frame_bitmap.width() - 1, y, ink, color);
    }
};

constexpr int side = 5;
/// A picture without any order: all channels of all pixels differ.
Bitmap scattered()
{
    return test::paint(side, side, [](int x, int y) {
        return pack_rgb((x * 53 + y * 31 + 20) & 255, (x * 17 + y * 71 + 90) & 255, (x * 97 + y * 13 + 5) & 255);
    });
}

constexpr std::array tip_values{0, 1, 100, 199, 200};

/// What one dab on `scattered` leaves in the frame and in the coverage, for each of `tip_values`.
struct Expected {
    int ink, strength;
    std::array<int, tip_values.size()> frame, coverage;
};

constexpr Expected in_the_middle[] = {
    {INK_EMBOSS, 128, {0xb700aa, 0xb800ab, 0xb900c5, 0xbb08e0, 0xbc0ae1}, {200, 199, 100, 1, 0}},
    {INK_EMBOSS, 255, {0xb40075, 0xb40075, 0xb800ab, 0xbb07e0, 0xbc0ae1}, {200, 199, 100, 1, 0}},
    {INK_SOFTEN, 128, {0xab4ab0, 0xac49b1, 0xb32ac8, 0xbb0ae0, 0xbc0ae1}, {200, 199, 100, 1, 0}},
    {INK_SOFTEN, 255, {0x9c8a81, 0x9c8981, 0xac4ab1, 0xbb0ae0, 0xbc0ae1}, {200, 199, 100, 1, 0}},
};

/// With three neighbours only.
constexpr Expected in_the_corner[] = {
    {INK_EMBOSS, 128, {0x190000, 0x1a0000, 0x3e4152, 0x63b8bb, 0x64babd}, {200, 199, 100, 1, 0}},
    {INK_EMBOSS, 255, {0x000000, 0x000000, 0x1a0000, 0x63b7ba, 0x64babd}, {200, 199, 100, 1, 0}},
    {INK_SOFTEN, 128, {0x3a7473, 0x3a7474, 0x4f9798, 0x63b9bc, 0x64babd}, {200, 199, 100, 1, 0}},
    {INK_SOFTEN, 255, {0x102f2b, 0x10302c, 0x3a7474, 0x63b9bc, 0x64babd}, {200, 199, 100, 1, 0}},
};

TEST_F(InkFilterTest, EmbossAndSoftenByStrengthAndTipValue)
{
    const auto check = [](const Expected& row, int x, int y) {
        set_option(row.ink, 0, row.strength);
        for (std::size_t i = 0; i < tip_values.size(); ++i) {
            SCOPED_TRACE(testing::Message() << "ink " << row.ink << " strength " << row.strength << " tip value "
                                            << tip_values[i] << " at " << x << ", " << y);
            begin(scattered());
            apply_ink(x, y, row.ink, 0, tip_values[i]);
            EXPECT_EQ(frame(x, y), row.frame[i]);
            EXPECT_EQ(coverage(x, y), row.coverage[i]);
        }
    };
    for (const Expected& row : in_the_middle)
        check(row, 2, 2);
    for (const Expected& row : in_the_corner)
        check(row, side - 1, side - 1);
}

TEST_F(InkFilterTest, FiltersReadThePictureBeforeTheStroke)
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

TEST_F(InkFilterTest, SourceOfAnotherSizeIsReadWhereItHasPixels)
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

TEST_F(InkFilterTest, CloseFillsGapsOfOnePixelBothWays)
{
    const Legend legend{{'.', 0x000000}, {'#', 0xc08040}, {'~', 0xc48440}};
    const Lines drawn{"#.#..#.", //
                      "......#", //
                      "~.#..#.", //
                      "#......", //
                      "..##.##"};
    toolbox.brush_color = 0xc08040;
    set_option(INK_CLOSE, 0, 5);
    begin(from_text(drawn, legend));
    cover(INK_CLOSE, 0xffffff);
    EXPECT_EQ(to_text(store.frame_bitmap, legend), (Lines{"###..#.", //
                                                          "#.#..##", //
                                                          "~##..#.", //
                                                          "#.#..#.", //
                                                          "..#####"}));
    set_option(INK_CLOSE, 0, 4); // a difference of 4 is no longer near
    begin(from_text(drawn, legend));
    cover(INK_CLOSE, 0xffffff);
    EXPECT_EQ(frame(0, 1), 0x000000);
    set_option(INK_CLOSE, 0, 0);
    begin(from_text(drawn, legend));
    cover(INK_CLOSE, 0xffffff);
    EXPECT_EQ(to_text(store.frame_bitmap, legend), drawn);
}

TEST_F(InkFilterTest, InksWithoutTipValueActOnTheWholeCell)
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

TEST_F(InkFilterTest, HollowKeepsTheRimOfSolidAreas)
{
    const Legend legend{{'.', 0x000000}, {'#', 0xc08040}, {'m', 0xff00ff}};
    const Lines drawn{"......", //
                      ".####.", //
                      ".####.", //
                      ".#####", //
                      ".#####", //
                      "######"};
    toolbox.mask_color = 0xff00ff;
    set_option(INK_HOLLOW, 0, 1);
    begin(from_text(drawn, legend));
    cover(INK_HOLLOW);
    cover(INK_HOLLOW);
    EXPECT_EQ(to_text(store.frame_bitmap, legend), (Lines{"......", //
                                                          ".####.", //
                                                          ".#mm#.", //
                                                          ".#mm##", //
                                                          ".#mmmm", //
                                                          "##mmmm"}));
    begin(from_text({"##", "##"}, legend));
    apply_ink(0, 0, INK_HOLLOW, 0, 100); // half the way to the mask colour
    EXPECT_EQ(frame(0, 0), blend_pixel(0xc08040, 0xff00ff, 100));
    set_option(INK_HOLLOW, 0, 0);
    apply_ink(1, 1, INK_HOLLOW, 0, 0);
    EXPECT_EQ(frame(1, 1), 0xc08040);
}

TEST_F(InkFilterTest, JumbleTakesAnyPixelInReachEvenly)
{
    constexpr int reach = 2;
    constexpr int rounds = 16000;
    set_option(INK_JUMBLE, 0, reach);
    begin(scattered());
    const Bitmap before = store.frame_bitmap.copy();
    std::map<int, int> seen;
    for (int i = 0; i < rounds; ++i) {
        apply_ink(2, 2, INK_JUMBLE, 0, 255);
        ++seen[frame(2, 2)];
    }
    EXPECT_EQ(seen.size(), 16U);
    for (int y = 0; y < 4; ++y) { // two to the left and up, one to the right and down
        for (int x = 0; x < 4; ++x)
            EXPECT_NEAR(seen[row(before, y)[x]], rounds / 16, 5 * std::sqrt(rounds / 16)) << x << ' ' << y;
    }
    begin(scattered());
    std::map<int, int> corner;
    for (int i = 0; i < rounds; ++i) {
        row(store.frame_bitmap, 0)[0] = 0x123456;
        apply_ink(0, 0, INK_JUMBLE, 0, 0);
        ++corner[frame(0, 0)];
    }
    EXPECT_EQ(corner.size(), 5U); // four pixels in the frame; else the pixel stays
    EXPECT_NEAR(corner[0x123456], rounds * 3 / 4, 5 * std::sqrt(rounds * 3 / 4));
    set_option(INK_JUMBLE, 0, 0);
    begin(scattered());
    cover(INK_JUMBLE);
    EXPECT_EQ(frame(3, 1), row(before, 1)[3]);
}

TEST_F(InkFilterTest, SweepRemovesSpecksByTheMeanOfTheFrame)
{
    set_option(INK_SWEEP, 0, 10);
    Bitmap picture(4, 3, 0x102030);
    row(picture, 1)[1] = 0xffffff;
    begin(std::move(picture));
    row(store.frame_bitmap, 0)[0] = 0x302010; // painted within the operation: it averages, but doesn't decide
    cover(INK_SWEEP);
    EXPECT_EQ(frame(1, 1), pack_rgb((7 * 0x10 + 0x30) / 8, 0x20, (7 * 0x30 + 0x10) / 8));
    EXPECT_EQ(frame(2, 1), 0x102030);
    set_option(INK_SWEEP, 0, 0);
    begin(Bitmap(1, 1, 0x123456)); // no neighbour at all
    apply_ink(0, 0, INK_SWEEP, 0, 0);
    EXPECT_EQ(frame(0, 0), 0x123456);
}

TEST_F(InkFilterTest, UnzagPullsInnerCornersOfSteps)
{
    const Legend legend{{'.', 0x000000}, {'#', 0xffffff}, {'o', 0x636363}, {'n', 0x050505}, {'m', 0x060606}};
    set_option(INK_UNZAG, 0, 100);
    begin(from_text({"###...", //
                     "######", //
                     "......"},
                    legend));
    cover(INK_UNZAG);
    EXPECT_EQ(frame(3, 0), 0x646464); // black, with three white neighbours down left: 100 of 255 of them
    EXPECT_EQ(frame(2, 0), 0xffffff);
    EXPECT_EQ(frame(4, 0), 0x000000);
    EXPECT_EQ(frame(0, 1), 0xffffff);
    begin(from_text({"..", ".#"}, legend));
    apply_ink(1, 1, INK_UNZAG, 0, 199);
    EXPECT_EQ(frame(1, 1), 0x9b9b9b);
    begin(from_text({"..", ".#"}, legend));
    apply_ink(1, 1, INK_UNZAG, 0, 200);
    EXPECT_EQ(frame(1, 1), 0xffffff);
    begin(from_text({"n.", ".#"}, legend)); // neighbours that differ by 5 agree
    apply_ink(1, 1, INK_UNZAG, 0, 0);
    EXPECT_EQ(frame(1, 1), 0x9b9b9b);
    begin(from_text({"m.", ".#"}, legend)); // by 6 no longer
    apply_ink(1, 1, INK_UNZAG, 0, 0);
    EXPECT_EQ(frame(1, 1), 0xffffff);
    for (const int grey : {19, 20}) { // within 20 of its neighbours a pixel stays
        Bitmap picture(2, 2);
        const int pixel = pack_rgb(grey, grey, grey);
        row(picture, 1)[1] = pixel;
        begin(std::move(picture));
        apply_ink(1, 1, INK_UNZAG, 0, 0);
        EXPECT_EQ(frame(1, 1) == pixel, grey == 19);
    }
}

TEST_F(InkFilterTest, GlowReachesItsWholeRadiusAndAtRadiusZeroItself)
{
    set_option(INK_GLOW, 0, 255);
    for (const int radius : {0, 1, 31, 99}) {
        const int reach = std::min(radius, 31);
        set_option(INK_GLOW, 1, radius);
        begin(Bitmap(80, 80, 0x000000));
        apply_ink(40, 40, INK_GLOW, 0xffffff, 0);
        for (int x = 0; x < 80; ++x) {
            const int d = std::abs(x - 40);
            const int expected = d > reach ? 0 : static_cast<int>(255.0 * (reach + 1 - d) / (reach + 1) + 0.001);
            ASSERT_NEAR(red_of(frame(x, 40)), expected, 1) << radius << ' ' << x;
            ASSERT_EQ(frame(x, 40) == 0, d > reach);
        }
    }
}

} // namespace
} // namespace kelu
