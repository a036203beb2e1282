// SPDX-License-Identifier: MIT
// The table of tones, filled by the conversions of single colours.
#include "colour/hls_pairs.h"

#include "colour/spaces.h"
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

} // namespace

const HlsTone* hls_tones()
{
    static const std::vector<HlsTone> tones = make_tones(); // two megabytes, for who uses these inks
    return tones.data();
}

} // namespace kelu
