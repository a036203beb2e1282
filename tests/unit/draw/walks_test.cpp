// SPDX-License-Identifier: MIT
// Pixels of lines, discs, outlines, areas and colours; dabs and drops.
#include "draw/close_pixels.h"
#include "draw/fill.h"
#include "draw/point_list.h"
#include "draw/replace.h"
#include "draw/stroke.h"
#include "runtime/pixels.h"
#include "runtime/random.h"
#include "support/pictures.h"
#include "support/pixel_text.h"
#include "support/point_print.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <tuple>

namespace kelu {

namespace {

const test::Legend legend{{'.', 0}, {'#', 1}, {'2', 2}, {'3', 3}, {'4', 4}};
const auto nothing = [] {};

/// A canvas that counts how often each pixel was reported.
struct Canvas {
    Bitmap bitmap;
    Canvas(int w, int h) : bitmap(w, h) {}
    void count(int x, int y)
    {
        if (in_bitmap(bitmap, x, y)) ++row(bitmap, y)[x];
    }
    auto counts_rows()
    {
        return [this](int left, int right, int y) {
            for (int x = left; x <= right; ++x)
                count(x, y);
        };
    }
    std::vector<std::string> text() { return test::to_text(bitmap, legend); }
};

using Lines = std::vector<std::string>;

TEST(Walks, LineReportsBothEndsInOrder)
{
    Points points;
    walk_line({0, 0}, {5, 2}, [&](int x, int y) { points.push_back({x, y}); });
    EXPECT_EQ(points, (Points{{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 2}, {5, 2}}));
    walk_circle({3, 3}, -1, [](int, int) { ADD_FAILURE() << "a negative radius has no points"; });
    points.clear();
    walk_circle({3, 4}, 0, [&](int x, int y) { points.push_back({x, y}); });
    EXPECT_FALSE(points.empty());
    EXPECT_EQ(std::ranges::count(points, Point{3, 4}), std::ssize(points));
}

TEST(Walks, OutlineMeetsEachPixelOnceAndRestsAfterEachStretch)
{
    Canvas canvas(8, 5);
    const Points bow{{0, 0}, {7, 4}, {7, 0}, {0, 4}, {0, 0}, {-9, -9}, {-3, 9}};
    int stretches = 0;
    walk_outline(
        bow, 8, 5, [&](int x, int y) { canvas.count(x, y); }, [&] { ++stretches; });
    EXPECT_EQ(canvas.text(), (Lines{"#......#", "###..###", "#..##..#", "###..###", "#......#"}));
    EXPECT_EQ(stretches, 6);
    for (Points across_the_rim : {Points{{-4, 2}, {0, 2}}, {{3, -4}, {3, 0}}, {{7, 1}, {9, 1}}, {{2, 4}, {2, 8}}}) {
        for (int way = 0; way < 2; ++way, std::swap(across_the_rim[0], across_the_rim[1]))
            walk_outline(
                across_the_rim, 8, 5, [&](int x, int y) { canvas.count(x, y); }, nothing);
    }
    EXPECT_EQ(canvas.text(), (Lines{"#..2...#", "###..##3", "3..##..#", "###..###", "#.2....#"}));
    walk_outline(
        Points{{2, 2}}, 8, 5, [](int, int) { ADD_FAILURE() << "one point is no line"; }, nothing);
}

TEST(Walks, PolygonIsFilledByTheEvenOddRuleWithinTheFrame)
{
    const auto fill = [](const Points& points) {
        Canvas canvas(9, 6);
        walk_polygon(points, 9, 6, canvas.counts_rows());
        return canvas.text();
    };
    EXPECT_EQ(fill({{-40000, -40000}, {40000, -40000}, {40000, 3}, {-40000, 3}}),
              (Lines{"#########", "#########", "#########", ".........", ".........", "........."}));
    // A square in a square, drawn in one line: the inner one is a hole.
    const Lines ring = fill({{0, 0}, {8, 0}, {8, 5}, {0, 5}, {0, 0}, {3, 2}, {3, 4}, {6, 4}, {6, 2}, {3, 2}});
    EXPECT_EQ(ring[3], "####..###");
}

TEST(Walks, RowExtentsSpanTheOutlineAndTakeMinusOneForUnset)
{
    std::vector<std::array<int, 3>> spans;
    const auto collect = [&](int left, int right, int y) { spans.push_back({left, right, y}); };
    walk_row_extents(Points{{3, 5}, {9, 5}, {4, 6}, {4, 7}, {2, 7}}, collect);
    EXPECT_EQ(spans, (std::vector<std::array<int, 3>>{{3, 9, 5}, {4, 4, 6}, {2, 4, 7}}));
    spans.clear();
    walk_row_extents(Points{{-1, 0}, {5, 0}, {8, 0}}, collect);
    EXPECT_EQ(spans, (std::vector<std::array<int, 3>>{{5, 8, 0}}));
    walk_row_extents({}, collect);
    EXPECT_EQ(spans.size(), 1U);
}

TEST(FloodFill, TakesWhatIsStrictlyWithinTheToleranceOfItsSeed)
{
    // The tolerance doesn't drift: g differs from the seed by 4, h by 8, though by 4 from g.
    const Bitmap picture = test::from_text({" ghh"}, {{' ', 0x404040}, {'g', 0x444040}, {'h', 0x484040}});
    for (const auto& [x, tolerance, area] :
         {std::tuple{0, 5, "##.."}, {0, 4, "#..."}, {0, 0, "...."}, {4, 9, "...."}}) { // 4: beside the picture
        Canvas canvas(4, 1);
        walk_area(picture, x, 0, tolerance, canvas.counts_rows(), nothing);
        EXPECT_EQ(canvas.text(), Lines{area}) << "tolerance " << tolerance;
    }
}

/// Marks the area of a pixel one by one.
void mark_area(BITMAP* source, BITMAP* marks, int x, int y, int seed)
{
    if (!in_bitmap(source, x, y) || row(source, y)[x] != seed || row(marks, y)[x] != 0) return;
    row(marks, y)[x] = 1;
    for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
        mark_area(source, marks, x + dx, y + dy, seed);
}

TEST(FloodFill, TakesEachPixelOfAnyAreaOnce)
{
    seed_random(11);
    for (int round = 0; round < 60; ++round) {
        const Bitmap picture =
            test::paint(5 + rnd(150), 2 + rnd(30), [](int, int) { return rnd(10) < 3 ? 0xffffff : 0; });
        const int x = rnd(picture->w), y = rnd(picture->h);
        Canvas filled(picture->w, picture->h), marked(picture->w, picture->h);
        walk_area(picture, x, y, 1, filled.counts_rows(), nothing);
        mark_area(picture, marked.bitmap, x, y, row(picture, y)[x]);
        ASSERT_EQ(filled.text(), marked.text()) << "round " << round;
    }
}

TEST(FloodFill, ClosePixelsAreThoseOfTheToleranceInEachChannel)
{
    seed_random(3);
    std::array<int, 64> pixels{};
    for (int round = 0; round < 300; ++round) {
        const int color = rnd(1 << 24), tolerance = rnd(round % 3 == 0 ? 4 : 256);
        for (int& pixel : pixels) { // near the colour in two channels of three, so that each of them decides
            pixel = color ^ (rnd(256) << 8 * rnd(3));
            if (rnd(2) == 0) pixel |= rnd(128) << 24;
        }
        const ClosePixels close(color, tolerance);
        for (const int count : {64, 1 + rnd(63)}) {
            const uint64_t bits = close.bits(pixels.data(), count);
            for (int k = 0; k < 64; ++k)
                ASSERT_EQ(bits >> k & 1,
                          k < count && colors_close(pixels[static_cast<std::size_t>(k)], color, tolerance))
                    << color << ' ' << tolerance << ' ' << k;
        }
    }
}

TEST(FloodFill, RunsComeInTheirOrder)
{
    // Letters in the order of the runs: from the seed down and up, then what opens beside them.
    const Lines picture{"#.#.#..#", //
                        "........", //
                        ".##.##.#", //
                        ".#...#..", //
                        "...#...#"};
    Bitmap source = test::from_text(picture, {{'.', 0}, {'#', 0xffffff}});
    Lines order = picture;
    char run = 'a';
    walk_area(
        source, 3, 2, 1,
        [&](int left, int right, int y) {
            for (int x = left; x <= right; ++x)
                order[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = run;
            ++run;
        },
        nothing);
    EXPECT_EQ(order, (Lines{"#f#g#hh#", //
                            "cccccccc", //
                            "d##a##e#", //
                            "k#bbb#ll", //
                            "iii#jjj#"}));
}

TEST(Replace, TakesAColorAnywhereAndStrictly)
{
    const test::Legend colors{{' ', 0x101010}, {'a', 0x404040}, {'b', 0x434040}};
    Bitmap source = test::from_text({"a ba", " b a"}, colors);
    for (const auto& [tolerance, expected] :
         {std::pair{0, Lines{"....", "...."}}, {1, {"#..#", "...#"}}, {3, {"#..#", "...#"}}, {4, {"#.##", ".#.#"}}}) {
        Canvas canvas(4, 2);
        walk_color(source, 0x404040, tolerance, [&](int x, int y) { canvas.count(x, y); });
        EXPECT_EQ(canvas.text(), expected) << "tolerance " << tolerance;
    }
}

TEST(Edge, LiesOnTheAreasOwnRimOnceForEachForeignNeighbour)
{
    const test::Legend colors{{' ', 0x101010}, {'a', 0x404040}, {'b', 0x444040}};
    const auto rims = [&](const Lines& picture, int tolerance) {
        Bitmap source = test::from_text(picture, colors);
        Canvas canvas(source->w, source->h);
        walk_rims(source, 0x404040, tolerance, [&](int x, int y) { canvas.count(x, y); });
        return canvas.text();
    };
    EXPECT_EQ(rims({"     ", " aaa ", " aaa ", " aaa ", "   a "}, 1),
              (Lines{".....", ".2#2.", ".#.#.", ".2##.", "...2."}));
    EXPECT_EQ(rims({"aaa", "aaa"}, 1), (Lines{"...", "..."})) << "the frame's rim is no neighbour";
    // A neighbour that differs by exactly the tolerance is neither inside nor foreign.
    EXPECT_EQ(rims({"aab"}, 4), (Lines{"..."}));
    EXPECT_EQ(rims({"aab"}, 3), (Lines{".#."}));
    EXPECT_EQ(rims({"a b"}, 5), (Lines{"#.#"}));
}

TEST(Driz, NarrowsWithSpeedAndBreaksBeyondTheTaper)
{
    const Point none{-1, -1};
    EXPECT_EQ(driz_radius(none, {50, 50}, 8, 32), 8) << "the first sample";
    EXPECT_EQ(driz_radius({50, 50}, {51, 49}, 8, 0), 8) << "a step of one pixel is rest";
    EXPECT_EQ(driz_radius({50, 50}, {66, 50}, 8, 32), 4);
    EXPECT_EQ(driz_radius({50, 50}, {52, 50}, 8, 32), 8) << "8 - trunc(0.5)";
    EXPECT_EQ(driz_radius({50, 50}, {82, 50}, 8, 32), 0);
    EXPECT_EQ(driz_radius({50, 50}, {83, 50}, 8, 32), no_dab);
    EXPECT_EQ(driz_radius({50, 50}, {52, 50}, 8, 0), no_dab);
    EXPECT_EQ(driz_radius({50, 50}, {53, 54}, 10, 10), 5) << "distance 5";
}

TEST(Spray, DropsFallOnEveryPixelOfTheDisc)
{
    seed_random(3);
    constexpr int radius = 6;
    Canvas hit(20, 20), disc(20, 20);
    spray_points(7, 12, 20000, radius, [&](int x, int y) { row(hit.bitmap, y)[x] = 1; });
    for (int y = -radius; y <= radius; ++y)
        for (int x = -radius; x <= radius; ++x)
            if (x * x + y * y < radius * radius) disc.count(7 + x, 12 + y);
    EXPECT_EQ(hit.text(), disc.text());
    const auto none = [](int, int) { ADD_FAILURE() << "no drop"; };
    spray_points(7, 12, 0, radius, none);
    spray_points(7, 12, 100, 0, none);
}

} // namespace
} // namespace kelu
