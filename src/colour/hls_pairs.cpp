// SPDX-License-Identifier: MIT
// The tables of tones, filled by the conversions of single colours.
#include "colour/hls_pairs.h"
#include "colour/hls_fours.h"

#include "colour/spaces.h"
#include <algorithm>
#include <vector>

namespace kelu {
namespace {

std::vector<HlsTone> make_tones()
{
    std::vector<HlsTone> tones(256 * 256);
    for (int highest = 0; highest < 256; ++highest) {
        for (int lowest = 0; lowest <= highest; ++lowest) {
            const Hls hls = rgb_to_hls(highest, lowest, lowest);
            const HlsEnds ends = hls_ends(hls);
            tones[static_cast<std::size_t>(highest << 8 | lowest)] = {ends.low, ends.high, hls.l / 255, hls.s};
        }
    }
    return tones;
}

std::vector<uint8_t> make_drops()
{
    std::vector<uint8_t> drops(256 * 256);
    for (int highest = 0; highest < 256; ++highest) {
        for (int lowest = 0; lowest <= highest; ++lowest) {
            const Hls hls = rgb_to_hls(highest, lowest, lowest);
            const HlsEnds ends = hls_ends(hls), full = hls_ends({hls.h, hls.l, 255});
            const int sum = highest + lowest;
            uint8_t& bits = drops[static_cast<std::size_t>(highest << 8 | lowest)];
            const auto note = [&bits](HlsDrop drop, double end, int was) {
                if (static_cast<int>(end * 255) < was) bits = static_cast<uint8_t>(bits | 1 << drop);
            };
            note(DROPS_LOW, ends.low, lowest);
            note(DROPS_HIGH, ends.high, highest);
            note(DROPS_FULL_LOW, full.low, std::max(sum - 255, 0));
            note(DROPS_FULL_HIGH, full.high, std::min(sum, 255));
        }
    }
    return drops;
}

} // namespace

const uint8_t* hls_drops()
{
    static const std::vector<uint8_t> drops = make_drops();
    return drops.data();
}

const HlsTone* hls_tones()
{
    static const std::vector<HlsTone> tones = make_tones(); // two megabytes, for who uses these inks
    return tones.data();
}

} // namespace kelu
