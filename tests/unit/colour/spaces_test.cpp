// SPDX-License-Identifier: MIT
// The conversions there and back, and worked values where truncation decides.
#include "colour/spaces.h"

#include "runtime/pixels.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace kelu {
namespace {

/// Calls `check(r, g, b)` over the colour cube on a grid that includes both ends of each channel.
template <class Check>
void over_cube(Check check)
{
    for (int r = 0; r <= 255; r += 17) {
        for (int g = 0; g <= 255; g += 17) {
            for (int b = 0; b <= 255; b += 17)
                check(r, g, b);
        }
    }
}

TEST(SpacesTest, EveryColourComesBackBeforeTruncation)
{
    over_cube([](int r, int g, int b) {
        const Hls hls = rgb_to_hls(r, g, b);
        const Rgb by_hls = hls_to_rgb(hls);
        ASSERT_NEAR(by_hls.r * 255, r, 1e-4);
        ASSERT_NEAR(by_hls.g * 255, g, 1e-4);
        ASSERT_NEAR(by_hls.b * 255, b, 1e-4);
        ASSERT_TRUE(hls.h >= 0 && hls.h < 255 && hls.s >= 0 && hls.s <= 255.0001);
        const Hsv hsv = rgb_to_hsv(r, g, b);
        const Rgb by_hsv = hsv_to_rgb({hsv.h / 256, hsv.s / 255, hsv.v / 255});
        ASSERT_NEAR(by_hsv.r * 255, r, 1e-9);
        ASSERT_NEAR(by_hsv.g * 255, g, 1e-9);
        ASSERT_NEAR(by_hsv.b * 255, b, 1e-9);
        ASSERT_TRUE(hsv.h >= 0 && hsv.h < 256);
    });
}

TEST(SpacesTest, SlidersOfWorkedColours)
{
    using Sliders = std::array<int, 3>;
    EXPECT_EQ(sliders_from_color(COLORSPACE_HLS, 0xff0000), (Sliders{0, 127, 255}));
    EXPECT_EQ(color_from_sliders(COLORSPACE_HLS, 0, 127, 255), 0xfe0000);
    EXPECT_EQ(sliders_from_color(COLORSPACE_HLS, 0x00ff00), (Sliders{85, 127, 255}));
    EXPECT_EQ(sliders_from_color(COLORSPACE_HLS, 0x0000ff), (Sliders{170, 127, 255}));
    EXPECT_EQ(sliders_from_color(COLORSPACE_HLS, 0xff00ff), (Sliders{212, 127, 255})); // blue decides the tie
    EXPECT_EQ(sliders_from_color(COLORSPACE_HSV, 0x00ff00), (Sliders{85, 255, 255}));
    EXPECT_EQ(sliders_from_color(COLORSPACE_HSV, 0x0000ff), (Sliders{170, 255, 255}));
    EXPECT_EQ(sliders_from_color(COLORSPACE_HSV, 0xff0001), (Sliders{255, 255, 255}));
    EXPECT_EQ(sliders_from_color(COLORSPACE_VGA, 0xffffff), (Sliders{63, 63, 63}));
    EXPECT_EQ(color_from_sliders(COLORSPACE_VGA, 63, 63, 63), 0xfcfcfc);
    EXPECT_EQ(color_from_sliders(COLORSPACE_HSV, 0, 255, 255), 0xff0000);
    // 128 x 1.40625 = 180 degrees: cyan, and half of the value in every channel at saturation 0
    EXPECT_EQ(color_from_sliders(COLORSPACE_HSV, 128, 255, 255), 0x00ffff);
    EXPECT_EQ(color_from_sliders(COLORSPACE_HSV, 200, 0, 100), 0x646464);
}

TEST(SpacesTest, GreysHaveNoHueAndRgbSlidersLoseNothing)
{
    for (int grey = 0; grey <= 255; ++grey) {
        const int color = pack_rgb(grey, grey, grey);
        for (const int space : {COLORSPACE_HLS, COLORSPACE_HSV}) {
            const auto [a, b, c] = sliders_from_color(space, color);
            ASSERT_EQ(a, 0);
            ASSERT_EQ(space == COLORSPACE_HLS ? c : b, 0);
            ASSERT_NEAR(red_of(color_from_sliders(space, a, b, c)), grey, 1);
        }
        const int mixed = pack_rgb(grey, 255 - grey, 7);
        const auto [r, g, b] = sliders_from_color(COLORSPACE_RGB, mixed);
        ASSERT_EQ(color_from_sliders(COLORSPACE_RGB, r, g, b), mixed);
    }
}

TEST(SpacesTest, InverseMixRunsFromTheColourToItsInverse)
{
    EXPECT_EQ(invert_mix(0x123456, 0), 0x123456);
    EXPECT_EQ(invert_mix(0x123456, 255), 0xedcba9);
    EXPECT_EQ(invert_mix(0x0000ff, 51), 0x3333cc);
}

} // namespace
} // namespace kelu
