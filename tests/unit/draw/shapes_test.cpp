// The outlines of the shape tools as lists of points.
#include "draw/freehand_shape.h"
#include "draw/oval.h"
#include "draw/polygon.h"
#include "draw/spiral.h"
#include "draw/spline.h"
#include "draw/supershape.h"
#include "support/point_print.h"
#include <cmath>
#include <gtest/gtest.h>
#include <iterator>
#include <set>

namespace kelu {

namespace {

double distance(Point a, double x, double y) { return std::hypot(a.x - x, a.y - y); }

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

TEST(Ellipse, CircleIsAClosedChainOfPixelsOnItsRim)
{
    const Points circle = interpolate_ellipse(50, 40, 30, 30, 77, 360);
    EXPECT_TRUE(is_chain(circle));
    for (const Point p : circle)
        EXPECT_NEAR(distance(p, 50, 40), 30, 1.5);
    EXPECT_EQ(circle.front(), Point(56, 10)) << "50 + 30 cos 77, 40 - 30 sin 77, truncated";
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

TEST(Ellipse, FlatOneGoesThereAndBack)
{
    const Points flat = interpolate_ellipse(20, 10, 10, 0, 0, 360);
    EXPECT_TRUE(is_chain(flat));
    std::set<int> columns;
    for (const Point p : flat) {
        EXPECT_EQ(p.y, 10);
        columns.insert(p.x);
    }
    EXPECT_EQ(columns.size(), 21U);
    EXPECT_GE(std::count(flat.begin(), flat.end(), Point(15, 10)), 2);
}

TEST(RegularPolygon, TriangleAtAngleZeroPointsUp)
{
    Points points;
    Bounds bounds;
    EXPECT_EQ(plot_polygon(100, 100, 0, 10, 3, points, bounds), 4);
    // Corners at 60, 180 and 300 degrees from straight down, 10 away: sin 60 = 0.866, cos 60 = 0.5.
    EXPECT_EQ(points, (Points{{109, 105}, {100, 90}, {91, 105}, {109, 105}}));
    EXPECT_EQ(bounds.left, 91);
    EXPECT_EQ(bounds.top, 90);
    EXPECT_EQ(bounds.right, 109);
    EXPECT_EQ(bounds.bottom, 105);
    EXPECT_TRUE(bounds.holds(100, 100));
    EXPECT_FALSE(bounds.holds(91, 100)) << "a side is not inside";

    plot_polygon(0, 0, 90, 10, 4, points, bounds);
    EXPECT_EQ(points, (Points{{-7, 7}, {7, 7}, {7, -7}, {-7, -7}, {-7, 7}}));
}

TEST(RegularPolygon, RefusesWhatIsOutOfRange)
{
    Points points{{1, 1}};
    Bounds bounds;
    for (const int sides : {2, 33, -1}) {
        EXPECT_EQ(plot_polygon(0, 0, 0, 10, sides, points, bounds), -1);
        EXPECT_TRUE(points.empty());
    }
    for (const int radius : {0, 513})
        EXPECT_EQ(plot_polygon(0, 0, 0, radius, 5, points, bounds), -1);
}

TEST(Supershape, ExponentsOfTwoGiveTheUnitCircle)
{
    // With n1 = n2 = n3 = 2 and any m, |cos|^2 + |sin|^2 is 1: the unit circle.
    for (const double phi : {0.0, 0.7, 2.0, 4.5}) {
        double x = 0;
        double y = 0;
        supershape_point(6, 2, 2, 2, phi, &x, &y);
        EXPECT_NEAR(x, std::cos(phi), 1e-12);
        EXPECT_NEAR(y, std::sin(phi), 1e-12);
    }
    double x = 9;
    double y = 9;
    supershape_point(4, -2, 1, 1, 0, &x, &y); // r = (1 + 0)^(-1/2) = 1
    EXPECT_NEAR(x, 1, 1e-12);
    supershape_point(0, 0, 2, 2, 1, &x, &y); // 1^inf = 1
    EXPECT_NEAR(std::hypot(x, y), 1, 1e-12);
    supershape_point(2, 0, 2, 2, 1, &x, &y); // just below or at 1: collapses or stays, but is a number
    EXPECT_TRUE(std::isfinite(x));
}

TEST(Supershape, OutlineIsClosedScaledAndBounded)
{
    SupershapeSettings circle{.degrees = 0, .n1 = 200, .n2 = 200, .n3 = 200, .arms = 4, .magnitude = 50};
    Points points;
    Bounds bounds;
    int segments = 0;
    plot_supershape(60, 70, circle, points, bounds, [&](Point, Point) { ++segments; });
    ASSERT_EQ(points.size(), 641U);
    EXPECT_EQ(points.front(), points.back());
    EXPECT_EQ(points.front(), Point(110, 70));
    for (const Point p : points)
        EXPECT_NEAR(distance(p, 60, 70), 50, 1.5);
    EXPECT_EQ(bounds.top, 20);
    EXPECT_EQ(segments, 639) << "all stretches but the one that starts on the axis, where y is 0";

    circle.degrees = 90;
    plot_supershape(60, 70, circle, points, bounds, [](Point, Point) {});
    EXPECT_EQ(points.front(), Point(60, 119)) << "its half turn, 3.14159, falls short of the rim and is truncated";

    // Shapes that run off to infinity, or collapse, still are lists of sane points.
    const SupershapeSettings wild{.degrees = 3, .n1 = 1, .n2 = -3000, .n3 = 3000, .arms = 20, .magnitude = 500};
    plot_supershape(60, 70, wild, points, bounds, [](Point, Point) {});
    for (const Point p : points)
        EXPECT_LE(std::max(std::abs(p.x), std::abs(p.y)), farthest);
}

TEST(Spiral, GrowsEvenlyAndFlips)
{
    Points points;
    Bounds bounds;
    plot_spiral(100, 100, 0, 500, 2, 0, false, points, bounds);
    EXPECT_NEAR(static_cast<double>(points.size()), 2 * 628, 1);
    EXPECT_EQ(points.front(), Point(100, 100));
    for (std::size_t i = 0; i < points.size(); i += 100)
        EXPECT_NEAR(distance(points[i], 100, 100), static_cast<double>(i) * 0.01 * 5, 1.5);
    Points mirrored;
    plot_spiral(100, 100, 0, 500, 2, 0, true, mirrored, bounds);
    ASSERT_EQ(points.size(), mirrored.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_EQ(mirrored[i], Point(200 - points[i].x, points[i].y));
    plot_spiral(0, 0, 0, 500, 0.9, 0, false, points, bounds);
    EXPECT_TRUE(points.empty()) << "less than one wrap";
}

TEST(Spiral, SpreadWidensTheOuterTurns)
{
    Points even;
    Points spread;
    Bounds bounds;
    plot_spiral(0, 0, 45, 100, 3, 0, false, even, bounds);
    plot_spiral(0, 0, 45, 100, 3, 255, false, spread, bounds);
    // k has grown by 255 / 30000 a step.
    const double last = static_cast<double>(even.size() - 1);
    EXPECT_NEAR(distance(spread.back(), 0, 0), last * 0.01 * (1 + last * 255 / 30000), 2);
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

TEST(Spline, SegmentsStartAndEndAtTheirNodes)
{
    Curve curve{{10, 10}, {60, 20}, {40, 70}};
    const Points open = curve.build(false, 33);
    ASSERT_EQ(open.size(), 64U);
    EXPECT_EQ(open[0], Point(10, 10));
    EXPECT_EQ(open[31], Point(60, 20));
    EXPECT_EQ(open[32], Point(60, 20));
    EXPECT_EQ(open[63], Point(40, 70));
    const Points closed = curve.build(true, 33);
    ASSERT_EQ(closed.size(), 96U);
    EXPECT_EQ(closed[95], Point(10, 10));
}

TEST(Spline, TangentRunsAlongTheChordOfTheNeighbours)
{
    Curve curve{{0, 0}, {50, 0}, {50, 50}};
    curve.build(false, 100);
    EXPECT_EQ(curve.nodes[2].tangent, itofix(32)) << "from (0, 0) to (50, 50): an eighth of the circle";
    EXPECT_EQ(curve.nodes[1].tangent, 0) << "the virtual neighbour lies on the line of the first two";
    // Its control points lie as far from the nodes as these from each other, at 100 per cent.
    const auto control = spline_control_points(curve.nodes[1], curve.nodes[2], itofix(1));
    EXPECT_EQ(control, (std::array<int, 8>{0, 0, 50, 0, 15, -35, 50, 0}));
}

TEST(Spline, CurveZeroIsStraightAndTwoClosedNodesMakeALens)
{
    Curve curve{{0, 0}, {90, 30}};
    for (const Point p : curve.build(false, 0))
        EXPECT_NEAR(p.y * 3, p.x, 3);
    const Points lens = curve.build(true, 80);
    ASSERT_EQ(lens.size(), 64U);
    // A neighbour's neighbour is the node itself: the tangents vanish, and the way back is the way there.
    EXPECT_EQ(lens[31], Point(90, 30));
    EXPECT_EQ(lens[63], Point(0, 0));
    EXPECT_TRUE(Curve({{5, 5}}).build(false, 50).empty());
    EXPECT_EQ(Curve({{5, 5}}).build(true, 50), Points(32, Point{5, 5}));
}

} // namespace
} // namespace kelu
