// SPDX-License-Identifier: MIT
// Which pixels are close to a colour, 64 at a time.
#pragma once

#include "base/fours.h"
#include "runtime/pixels.h"
#include <algorithm>

namespace kelu {

/// As `colors_close` to one colour at one tolerance.
class ClosePixels {
public:
    ClosePixels(int color, int tolerance) : color_(color), tolerance_(tolerance)
    {
        for (int shift = 0; shift < channel_bits; shift += 8) {
            const int channel = color >> shift & 255;
            const int low = std::max(channel - tolerance + 1, 0), high = std::min(channel + tolerance - 1, 255);
            low_ |= low << shift;
            span_ |= (high - low) << shift;
        }
    }

    /// A bit a pixel, the first one lowest. `count` is 1 to 64; the bits beyond are 0.
    uint64_t bits(const int* pixels, int count) const
    {
        if (tolerance_ <= 0) return 0; // takes nothing
        if (count == 64) return uint64_t{half(pixels)} | uint64_t{half(pixels + half_width)} << half_width;
        uint64_t found = 0;
        for (int k = 0; k < count; ++k)
            found |= uint64_t{colors_close(pixels[k], color_, tolerance_)} << k;
        return found;
    }

private:
    using Channels = uint8_t __attribute__((vector_size(16)));
    static constexpr int channel_bits = 24, half_width = 32;

    /// 32 pixels. The top byte of each counts as close.
    uint32_t half(const int* pixels) const
    {
        const Channels low = std::bit_cast<Channels>(all_four(low_));
        const Channels span = std::bit_cast<Channels>(all_four(span_ | static_cast<int>(0xff000000U)));
        Ints found{};
        Ints places{1, 2, 4, 8};
        for (int k = 0; k < half_width; k += 4, places <<= 4) {
            const Channels above = std::bit_cast<Channels>(load_four(pixels + k)) - low;
            found |= (std::bit_cast<Ints>(above <= span) == -1) & places;
        }
        return static_cast<uint32_t>(found[0] | found[1] | found[2] | found[3]);
    }

    int color_, tolerance_;
    int low_ = 0, span_ = 0; ///< by channel: the least level that is close, and how far those reach from it
};

} // namespace kelu
