// SPDX-License-Identifier: MIT
// Four colours at once against one at a time: what isn't marked as doubtful is the same colour.
#include "colour/hls_fours.h"

#include "colour/spaces.h"
#include "runtime/pixels.h"
#include "runtime/random.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace kelu {
namespace {

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

struct Count {
    int all = 0, doubtful = 0;
};

/// Compares where there is no doubt; `one` converts a single colour.
template <class One>
void compare(Ints colors, const HlsResult& result, Count& count, One one)
{
    for (int i = 0; i < 4; ++i) {
        ++count.all;
        if (result.doubtful[i] != 0) {
            ++count.doubtful;
            continue;
        }
        ASSERT_EQ(result.colors[i], pack_rgb(hls_to_rgb(one(rgb_to_hls(colors[i]))))) << std::hex << colors[i];
    }
}

TEST(HlsFour, IsWhatOneColourAtATimeComesToWhereItIsntInDoubt)
{
    seed_random(5);
    Count hues, saturations;
    for (int round = 0; round < 40000; ++round) {
        const Ints colors{some_color(round), some_color(round), some_color(round), some_color(round)};
        const HlsFour four(hls_drops(), colors);
        const float hue = static_cast<float>(rnd(25501)) / 100.0F;
        compare(colors, four.with_hue(Floats{hue, hue, hue, hue}), hues, [hue](Hls hls) {
            hls.h = hue;
            return hls;
        });
        const float gain = static_cast<float>(1 + rnd(255)) - static_cast<float>(rnd(8)) / 10.0F;
        compare(colors, four.with_saturation(Floats{gain, gain, gain, gain}), saturations, [gain](Hls hls) {
            hls.s = std::min(hls.s + gain, 255.0);
            return hls;
        });
        const Floats own = four.hue();
        for (int i = 0; i < 4; ++i)
            ASSERT_NEAR(own[i], rgb_to_hls(colors[i]).h, 1e-3) << std::hex << colors[i];
    }
    EXPECT_LT(hues.doubtful, hues.all / 10);
    EXPECT_LT(saturations.doubtful, saturations.all * 2 / 3);
}

} // namespace
} // namespace kelu
