// SPDX-License-Identifier: MIT
// The conversions there and back, four colours at once against one at a time, worked values where truncation decides,
// and shifts of single colours.
#include "colour/hls_fours.h"
#include "colour/spaces.h"
#include "colour/tint.h"
#include "runtime/pixels.h"
#include "runtime/random.h"
#include "runtime/toolbox.h"
#include "support/fresh_state.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace kelu {
namespace {

TEST(Spaces, EveryColourComesBackBeforeTruncation)
{
    const auto expect_near = [](const Rgb& back, int color, double slack) {
        ASSERT_NEAR(back.r * 255, red_of(color), slack);
        ASSERT_NEAR(back.g * 255, green_of(color), slack);
        ASSERT_NEAR(back.b * 255, blue_of(color), slack);
    };
    constexpr int grid = 16 * 16 * 16; // includes both ends of each channel; then all greys
    for (int i = 0; i < grid + 256; ++i) {
        const int color =
            i < grid ? pack_rgb(i % 16 * 17, i / 16 % 16 * 17, i / 256 * 17) : pack_rgb(i - grid, i - grid, i - grid);
        const Hls hls = rgb_to_hls(color);
        expect_near(hls_to_rgb(hls), color, 1e-4);
        ASSERT_TRUE(hls.h >= 0 && hls.h < 255 && hls.s >= 0 && hls.s <= 255.0001);
        const Hsv hsv = rgb_to_hsv(red_of(color), green_of(color), blue_of(color));
        expect_near(hsv_to_rgb({hsv.h / 256, hsv.s / 255, hsv.v / 255}), color, 1e-9);
        ASSERT_TRUE(hsv.h >= 0 && hsv.h < 256);
        ASSERT_TRUE(i < grid || (hls.h == 0 && hls.s == 0 && hsv.h == 0 && hsv.s == 0)) << "greys have no hue";
    }
}

TEST(Spaces, SlidersOfWorkedColours)
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
    EXPECT_EQ(sliders_from_color(COLORSPACE_RGB, 0x12f67e), (Sliders{0x12, 0xf6, 0x7e}));
    EXPECT_EQ(color_from_sliders(COLORSPACE_RGB, 0x12, 0xf6, 0x7e), 0x12f67e);
    EXPECT_EQ(sliders_from_color(COLORSPACE_VGA, 0xffffff), (Sliders{63, 63, 63}));
    EXPECT_EQ(color_from_sliders(COLORSPACE_VGA, 63, 63, 63), 0xfcfcfc);
    EXPECT_EQ(color_from_sliders(COLORSPACE_HSV, 0, 255, 255), 0xff0000);
    // 128 x 1.40625 = 180 degrees: cyan, and half of the value in every channel at saturation 0
    EXPECT_EQ(color_from_sliders(COLORSPACE_HSV, 128, 255, 255), 0x00ffff);
    EXPECT_EQ(color_from_sliders(COLORSPACE_HSV, 200, 0, 100), 0x646464);
}

TEST(Spaces, InverseMixRunsFromTheColourToItsInverse)
{
    EXPECT_EQ(invert_mix(0x123456, 0), 0x123456);
    EXPECT_EQ(invert_mix(0x123456, 255), 0xedcba9);
    EXPECT_EQ(invert_mix(0x0000ff, 51), 0x3333cc);
}

/// Of many kinds in turn: any colour, nearly grey, of few levels, with channels at their ends.
int some_color(int kind)
{
    const auto ends = [] { return std::clamp(rnd(320) - 32, 0, 255); };
    const int grey = rnd(256);
    const auto near_grey = [grey] { return std::clamp(grey + rnd(9) - 4, 0, 255); };
    switch (kind % 4) {
    case 0:
        return rnd(1 << 24);
    case 1:
        return pack_rgb(near_grey(), near_grey(), near_grey());
    case 2:
        return pack_rgb(rnd(6) * 51, rnd(6) * 51, rnd(6) * 51);
    default:
        return pack_rgb(ends(), ends(), ends());
    }
}

TEST(HlsFour, IsWhatOneColourAtATimeComesToWhereItIsntInDoubt)
{
    seed_random(5);
    constexpr int rounds = 40000;
    int hues = 0, saturations = 0; // in doubt, of four colours a round
    for (int round = 0; round < rounds; ++round) {
        const Ints colors{some_color(round), some_color(round), some_color(round), some_color(round)};
        const auto compare = [&colors](const HlsResult& result, int& doubtful, auto change) {
            for (int i = 0; i < 4; ++i) {
                if (result.doubtful[i] != 0) {
                    ++doubtful;
                    continue;
                }
                Hls hls = rgb_to_hls(colors[i]);
                change(hls);
                ASSERT_EQ(result.colors[i], pack_rgb(hls_to_rgb(hls))) << std::hex << colors[i];
            }
        };
        const HlsFour four(hls_drops(), colors);
        const float hue = static_cast<float>(rnd(25501)) / 100.0F;
        compare(four.with_hue(Floats{hue, hue, hue, hue}), hues, [hue](Hls& hls) { hls.h = hue; });
        const float gain = static_cast<float>(1 + rnd(255)) - static_cast<float>(rnd(8)) / 10.0F;
        compare(four.with_saturation(Floats{gain, gain, gain, gain}), saturations,
                [gain](Hls& hls) { hls.s = std::min(hls.s + gain, 255.0); });
        const Floats own = four.hue();
        for (int i = 0; i < 4; ++i)
            ASSERT_NEAR(own[i], rgb_to_hls(colors[i]).h, 1e-3) << std::hex << colors[i];
    }
    EXPECT_LT(hues, 4 * rounds / 10);
    EXPECT_LT(saturations, 4 * rounds * 2 / 3);
}

using TintedFrame = test::FreshState;

TEST_F(TintedFrame, ShiftsOfWorkedColours)
{
    // Red has hue 0, lightness 127.5, saturation 255.
    EXPECT_EQ(tinted(0xff0000, {.hue = 85}), 0x00ff00);
    EXPECT_EQ(tinted(0xff0000, {.hue = -85}), 0x0000ff);
    EXPECT_EQ(tinted(0xff0000, {.hue = 128}), tinted(0xff0000, {.hue = -127})); // the short way round
    EXPECT_EQ(tinted(0xff0000, {.hue = -128}), tinted(0xff0000, {.hue = 127}));
    EXPECT_EQ(tinted(0xff0000, {.lightness = 128}), 0xffffff);
    EXPECT_EQ(tinted(0xff0000, {.lightness = -128}), 0x000000);
    EXPECT_EQ(tinted(0xff0000, {.saturation = 128}), 0xff0000);
    // Saturation 127 of 255 about the middle: 127.5 x (1 + 127 / 255) and 127.5 x (1 - 127 / 255).
    EXPECT_EQ(tinted(0xff0000, {.saturation = -128}), 0xbf4040);
    // A grey has no hue: lightness moves it, saturation turns it towards red.
    EXPECT_EQ(tinted(0x808080, {.hue = 100}), 0x808080);
    EXPECT_EQ(tinted(0x808080, {.lightness = 16}), 0x909090);
    EXPECT_EQ(tinted(0x808080, {.saturation = 64}), 0x9f6060);
}

TEST_F(TintedFrame, MaskColourStaysOnlyWhereItIsExact)
{
    toolbox.mask_color = 0x102030;
    Bitmap source(3, 1, 0x102030);
    row(source, 0)[1] = 0x102031;
    const Bitmap dest(3, 1);
    const auto at = [&](int x) { return row(dest, 0)[x]; };
    tint_frame(true, true, source, dest, {.lightness = 50});
    EXPECT_EQ(at(0), 0x102030);
    EXPECT_NE(at(1), 0x102031);
    tint_frame(true, false, source, dest, {.lightness = 50});
    EXPECT_NE(at(2), 0x102030);
    tint_frame(true, true, source, dest, {}); // no shift: the untouched pixels
    EXPECT_EQ(at(1), 0x102031);
    EXPECT_EQ(at(2), 0x102030);
}

} // namespace
} // namespace kelu
