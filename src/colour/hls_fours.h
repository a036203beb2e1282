// SPDX-License-Identifier: MIT
// Four colours at once through HLS and back, in single precision, with a mark where that may not do.
//
// The conversions of spaces.h work in double precision and truncate. Single precision comes to the same colour unless
// a number lies so near to an integer, or to a rim of its range, that the last bits decide. Such colours are marked as
// doubtful, and whoever uses this has them converted by hls_pairs.h. The bounds of the marks are some ten times the
// errors that add up here.
#pragma once

#include "base/fours.h"
#include <cstdint>

namespace kelu {

/// How a colour's ends, its lowest and highest channel, come back from HLS: as they were, or one less.
/// These are the numbers of bits.
enum HlsDrop : uint8_t {
    DROPS_LOW,
    DROPS_HIGH,
    DROPS_FULL_LOW, ///< the same with the saturation at its most
    DROPS_FULL_HIGH
};
/// The bits by highest channel x 256 + lowest.
const uint8_t* hls_drops();

/// Four colours, and a mask of those that are in doubt.
struct HlsResult {
    Ints colors, doubtful;
};

/// Where a positive number is an integer, or nearly.
inline Ints near_integer(Floats number, float bound)
{
    const Floats part = number - to_floats(to_ints(number));
    return (part < bound) | (part > 1 - bound);
}

class HlsFour {
public:
    HlsFour(const uint8_t* drops, Ints colors)
        : red_(colors >> 16 & 255), green_(colors >> 8 & 255), blue_(colors & 255),
          highest_(larger(larger(red_, green_), blue_)), lowest_(smaller(smaller(red_, green_), blue_)),
          range_(highest_ - lowest_)
    {
        const Ints at = highest_ << 8 | lowest_;
        drops_ = Ints{drops[at[0]], drops[at[1]], drops[at[2]], drops[at[3]]};
    }

    Ints greys() const { return range_ == 0; }

    /// 0 to 255; of a grey 0.
    Floats hue() const
    {
        const Ints from_blue = blue_ == highest_, from_green = green_ == highest_;
        const Ints ahead = choose(from_blue, red_ - green_, choose(from_green, blue_ - red_, green_ - blue_));
        const Ints sextant = choose(from_blue, all_four(4), from_green & 2);
        const Floats hue = (to_floats(ahead) / to_floats(range_ - greys()) + to_floats(sextant)) * 42.5F;
        return choose(greys(), Floats{}, choose(hue < 0, hue + 255, hue));
    }

    /// The colours with other hues, 0 to 255.
    HlsResult with_hue(Floats hue) const
    {
        const Ends ends{to_floats(lowest_), to_floats(highest_), lowest_ - dropped(DROPS_LOW),
                        highest_ - dropped(DROPS_HIGH)};
        return packed(ends, hue, greys());
    }

    /// With the saturation raised by 1 to 255.
    HlsResult with_saturation(Floats raise) const
    {
        const Floats sum = to_floats(highest_ + lowest_), half = sum * 0.5F;
        const Ints dark = sum < 255;
        const Floats most = choose(dark, sum, 510 - sum); // of the range at this lightness
        const Floats saturation = to_floats(range_) / choose(most > 0, most, Floats{1, 1, 1, 1}) + raise / 255;
        const Ints full = saturation >= 1;
        const Floats s = choose(full, Floats{1, 1, 1, 1}, saturation);
        const Floats high = choose(dark, (s + 1) * half, half + s * 255 - s * half), low = sum - high;
        const Ints least = ~dark & (highest_ + lowest_ - 255);
        const Ints whole_low = choose(full, least - dropped(DROPS_FULL_LOW), to_ints(low));
        const Ints whole_high =
            choose(full, choose(dark, highest_ + lowest_, all_four(255)) - dropped(DROPS_FULL_HIGH), to_ints(high));
        HlsResult result = packed({low, high, whole_low, whole_high}, hue(), Ints{});
        const Ints ends_doubtful = near_integer(low, value_bound) | near_integer(high, value_bound);
        result.doubtful |= (~full & ends_doubtful) | near_integer(saturation, rim_bound);
        return result;
    }

private:
    static constexpr float rim_bound = 1e-4F;   ///< of shares and of sixths of a turn
    static constexpr float value_bound = 4e-3F; ///< of channels of 0 to 255

    /// Lowest and highest channel, as they are and truncated.
    struct Ends {
        Floats low, high;
        Ints whole_low, whole_high;
    };

    Ints dropped(HlsDrop bit) const { return drops_ >> int{bit} & 1; }

    /// `flat`: where both ends are the same.
    static HlsResult packed(const Ends& ends, Floats hue, Ints flat)
    {
        const Floats sixths = hue * (6.0F / 255.0F);
        Ints doubtful = near_integer(sixths, rim_bound);
        const auto channel = [&](Floats share) {
            const Ints inside = (share > 0) & (share < 1) & ~flat;
            const Floats value = ends.low + (ends.high - ends.low) * share;
            doubtful |= inside & near_integer(value, value_bound);
            return choose(inside, to_ints(value), choose(share > 0, ends.whole_high, ends.whole_low));
        };
        const Ints red = channel(size_of(sixths - 3) - 1);
        const Ints green = channel(2 - size_of(sixths - 2));
        const Ints blue = channel(2 - size_of(sixths - 4));
        return {red << 16 | green << 8 | blue, doubtful & ~flat};
    }

    Ints red_, green_, blue_, highest_, lowest_, range_, drops_;
};

} // namespace kelu
