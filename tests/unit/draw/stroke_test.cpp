// SPDX-License-Identifier: MIT
// Choice of dabs and drops.
#include "draw/stroke.h"
#include "runtime/random.h"
#include "support/point_print.h"
#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace kelu {
namespace {

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

TEST(Spray, DropsFallEvenlyOverTheDisc)
{
    seed_random(3);
    constexpr int drops = 200000;
    constexpr int radius = 6;
    std::map<std::pair<int, int>, int> hits;
    int count = 0;
    spray_points(20, 30, drops, radius, [&](int x, int y) {
        ++hits[{x, y}];
        ++count;
    });
    // Each of the 12 x 12 pixels of the square is as likely; those of the disc remain.
    int disc = 0;
    for (int y = -radius; y < radius; ++y)
        for (int x = -radius; x < radius; ++x)
            disc += x * x + y * y < radius * radius ? 1 : 0;
    EXPECT_EQ(static_cast<int>(hits.size()), disc);
    const double expected = drops / 144.0;
    for (const auto& [pixel, times] : hits)
        EXPECT_NEAR(times, expected, 5 * std::sqrt(expected)) << pixel.first << ", " << pixel.second;
    EXPECT_NEAR(count, expected * disc, 5 * std::sqrt(expected * disc));

    const auto none = [](int, int) { ADD_FAILURE() << "no drop"; };
    spray_points(20, 30, 0, radius, none);
    spray_points(20, 30, 100, 0, none);
}

} // namespace
} // namespace kelu
