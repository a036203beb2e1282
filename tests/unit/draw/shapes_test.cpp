// SPDX-License-Identifier: MIT
// The outlines of the shape tools as lists of points.
#include "draw/oval.h"
#include "draw/polygon.h"
#include "draw/spiral.h"
#include "draw/spline.h"
#include "draw/stroke.h"
#include "draw/supershape.h"
#include "runtime/pixels.h"
#include "support/golden.h"
#include "support/point_print.h"
#include <cmath>
#include <gtest/gtest.h>
#include <iterator>

namespace kelu {

namespace {

/// True when each point is adjacent to the one before, or begins the line that closes the chain.
bool is_chain(const Points& points)
{
    for (std::size_t i = 1; i < points.size(); ++i)
        if (!adjacent(points[i - 1], points[i]) && points[i] != points.front()) return false;
    return !points.empty();
}

TEST(Coordinates, TruncateTowardZeroAndStayInRange)
{
    EXPECT_EQ(to_coordinate(2.9), 2);
    EXPECT_EQ(to_coordinate(-2.9), -2);
    EXPECT_EQ(to_coordinate(1e300), farthest);
    EXPECT_EQ(to_coordinate(-INFINITY), -farthest);
    EXPECT_EQ(to_coordinate(NAN), 0);
}

TEST(Ellipse, GapsOfALargeOneAreFilled)
{
    const Points large = interpolate_ellipse(0, 0, 900, 400, 0, 360);
    EXPECT_TRUE(is_chain(large));
    EXPECT_GT(large.size(), 360U);
    const Points coarse = interpolate_ellipse(0, 0, 100, 100, 0, 4);
    EXPECT_TRUE(is_chain(coarse)) << "four samples make a diamond";
    for (const Point p : coarse)
        EXPECT_NEAR(std::abs(p.x) + std::abs(p.y), 100, 2);
}

struct Curve {
    NodeTable table{};
    SplineNodes nodes{};
    int count = 0;
    explicit Curve(std::initializer_list<Point> clicks) : count(static_cast<int>(clicks.size()))
    {
        table.fill({unset_node, unset_node});
        std::copy(clicks.begin(), clicks.end(), std::next(table.begin()));
    }
    Points build(bool closed, int curve)
    {
        prepare_spline_nodes(table, count + 1, closed, nodes);
        return build_spline(nodes, count, closed, curve);
    }
};

/// A list of points as the tools walk it: pixels of the lines between them.
void draw(BITMAP* picture, const Points& points, int color)
{
    walk_outline(
        points, picture->w, picture->h, [&](int x, int y) { row(picture, y)[x] = color; }, [] {});
}

TEST(Shapes, LookAsTheyDid)
{
    const Bitmap picture(320, 240);
    Points points;
    Bounds bounds;
    draw(picture, interpolate_ellipse(40, 40, 35, 20, 77, 360), 0xff8080);
    draw(picture, interpolate_ellipse(40, 40, 30, 0, 30, 360), 0x804040);
    for (const int sides : {3, 5, 32}) {
        plot_polygon(120, 40, 7 * sides, 38, sides, points, bounds);
        draw(picture, points, 0x80ff80);
    }
    for (const SupershapeSettings& settings :
         {SupershapeSettings{.degrees = 0, .n1 = 200, .n2 = 200, .n3 = 200, .arms = 4, .magnitude = 38},
          {.degrees = 30, .n1 = 60, .n2 = 55, .n3 = 1000, .arms = 6, .magnitude = 30},
          {.degrees = 5, .n1 = 0, .n2 = 200, .n3 = 200, .arms = 0, .magnitude = 30},
          {.degrees = 3, .n1 = -200, .n2 = 100, .n3 = 100, .arms = 4, .magnitude = 20}}) {
        plot_supershape(200, 40, settings, points, bounds);
        draw(picture, points, 0x8080ff);
    }
    plot_spiral(50, 130, 0, 100, 4, 0, false, points, bounds);
    draw(picture, points, 0xffff80);
    plot_spiral(130, 130, 45, 60, 3, 255, true, points, bounds);
    draw(picture, points, 0x80ffff);
    for (const auto& [closed, curve] : {std::pair{false, 33}, {true, 33}, {true, 100}, {false, 0}}) {
        draw(picture, Curve({{200, 120}, {300, 110}, {260, 180}, {210, 200}}).build(closed, curve), 0xff80ff);
        draw(picture, Curve({{270, 20}, {310, 90}}).build(closed, curve), 0xffffff);
    }
    EXPECT_TRUE(test::matches_golden(picture, "shapes"));
}

TEST(RegularPolygon, RefusesWhatIsOutOfRange)
{
    Bounds bounds;
    Points points;
    for (const auto& [radius, sides] : {std::pair{1, 3}, {512, 32}})
        EXPECT_NE(plot_polygon(0, 0, 0, radius, sides, points, bounds), -1);
    for (const auto& [radius, sides] : {std::pair{10, 2}, {10, 33}, {10, -1}, {0, 5}, {513, 5}}) {
        points = {{1, 1}};
        EXPECT_EQ(plot_polygon(0, 0, 0, radius, sides, points, bounds), -1);
        EXPECT_TRUE(points.empty()) << radius << ", " << sides;
    }
}

TEST(FreehandShape, JumpsRepeatTheLastSample)
{
    Points points;
    const Point none{no_position, no_position};
    append_sample(points, none, {5, 5});
    append_sample(points, {5, 5}, {5, 5});
    append_sample(points, {5, 5}, {6, 4});
    append_sample(points, {6, 4}, {9, 4});
    EXPECT_EQ(points, (Points{{5, 5}, {6, 4}, {6, 4}, {9, 4}}));
}

} // namespace
} // namespace kelu
