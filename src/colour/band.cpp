// SPDX-License-Identifier: MIT
// Folding, clamping and banding of a position, and the colour there.
#include "colour/band.h"

#include "runtime/pixels.h"

namespace kelu {
namespace {

/// Where a position of 1 and more is taken: the band never quite reaches its end.
constexpr float last_position = 0.99F;
/// Carries a position that is on the edge of a band over it.
constexpr float band_edge = 0.01F;

float folded(float t)
{
    for (int i = 0; i < spectrum.spectrum_fold && i < max_spectrum_fold; ++i)
        t = t < 0.5F ? t + t : (1.0F - t) + (1.0F - t);
    if (t >= 1.0F) return last_position;
    return t < 0.0F ? 0.0F : t;
}

} // namespace

int spectrum_color(int start, int end, float bands, float position)
{
    const float t = folded(position);
    // t is not negative, so that the truncation is the floor of the band.
    const float step = static_cast<float>(static_cast<int>(t * bands + band_edge));
    const auto channel = [&](int from, int to) {
        const float d = static_cast<float>(to - from);
        return static_cast<int>(static_cast<float>(from) + (bands > 1.0F ? d / bands * step : d * t));
    };
    return pack_rgb(channel(red_of(start), red_of(end)), channel(green_of(start), green_of(end)),
                    channel(blue_of(start), blue_of(end)));
}

} // namespace kelu
