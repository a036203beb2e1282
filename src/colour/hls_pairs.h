// SPDX-License-Identifier: MIT
// Two colours at once through HLS and back: bit for bit what `rgb_to_hls` and `hls_to_rgb` do to each.
//
// Lightness and saturation follow from a colour's highest and lowest channel alone. What costs divisions of these two
// is looked up by them.
#pragma once

#include "base/table.h"
#include "runtime/pixels.h"
#include <algorithm>
#include <array>

namespace kelu {

using Doubles = double __attribute__((vector_size(16)));

/// What follows from the highest and the lowest channel of a colour.
struct HlsTone {
    double low, high;             ///< lowest and highest channel that `hls_to_rgb` works between, 0 to 1
    double lightness, saturation; ///< lightness 0 to 1, saturation 0 to 255
};
/// The tones by highest channel x 256 + lowest.
const HlsTone* hls_tones();

/// Two colours, and what is the same for all hues of them.
class HlsPair {
public:
    HlsPair(const HlsTone* tones, int a, int b) : HlsPair(tones, Channels(a), Channels(b)) {}

    Doubles hue() const
    {
        // A grey has no hue: it may be any.
        const Doubles d = high_ == low_ ? Doubles{1, 1} : high_ - low_;
        const Doubles ahead = blue_ == high_ ? red_ - green_ : green_ == high_ ? blue_ - red_ : green_ - blue_;
        const Doubles sextant = blue_ == high_ ? Doubles{4, 4} : green_ == high_ ? Doubles{2, 2} : Doubles{};
        const Doubles hue = (ahead / d + sextant) * 42.5;
        return hue < 0 ? hue + 255 : hue;
    }
    /// The packed colours with another hue, 0 to 255.
    std::array<int, 2> with_hue(Doubles hue) const
    {
        return packed(Doubles{a_.low, b_.low}, Doubles{a_.high, b_.high}, hue / 255);
    }
    /// With the saturation raised by 0 to 255. A grey becomes a red.
    std::array<int, 2> with_saturation(Doubles raise) const
    {
        const Doubles raised = Doubles{a_.saturation, b_.saturation} + raise;
        const Doubles s = (raised < 255 ? raised : Doubles{255, 255}) / 255;
        const Doubles l{a_.lightness, b_.lightness};
        const Doubles high = l < 0.5 ? (s + 1) * l : l + s - s * l;
        const auto coloured = s > 0.001; // as in spaces.cpp
        const Doubles h = (high_ == low_ ? Doubles{} : hue()) / 255;
        return packed(coloured ? 2 * l - high : l, coloured ? high : l, h);
    }

private:
    struct Channels {
        explicit Channels(int color)
            : red(red_of(color)), green(green_of(color)), blue(blue_of(color)), highest(std::max({red, green, blue})),
              lowest(std::min({red, green, blue}))
        {}
        int red, green, blue, highest, lowest;
    };
    HlsPair(const HlsTone* tones, const Channels& a, const Channels& b)
        : a_(tones[a.highest << 8 | a.lowest]),
          b_(tones[b.highest << 8 | b.lowest]), red_{share[a.red], share[b.red]}, green_{share[a.green],
                                                                                         share[b.green]},
          blue_{share[a.blue], share[b.blue]}, high_{share[a.highest], share[b.highest]}, low_{share[a.lowest],
                                                                                               share[b.lowest]}
    {}

    static Doubles channel(Doubles p, Doubles q, Doubles t)
    {
        constexpr double two_thirds = 0.6666667; // as in spaces.cpp
        t = t < 0 ? t + 1 : t;
        t = t > 1 ? t - 1 : t;
        const Doubles rises = p + (q - p) * 6 * t;
        const Doubles falls = p + (q - p) * (two_thirds - t) * 6;
        return (6 * t < 1 ? rises : 2 * t < 1 ? q : 3 * t < 2 ? falls : p) * 255;
    }
    static std::array<int, 2> packed(Doubles p, Doubles q, Doubles h)
    {
        constexpr double one_third = 0.33333334;
        const Doubles r = channel(p, q, h + one_third);
        const Doubles g = channel(p, q, h);
        const Doubles b = channel(p, q, h - one_third);
        const auto pack = [&](int i) {
            return pack_rgb(static_cast<int>(r[i]), static_cast<int>(g[i]), static_cast<int>(b[i]));
        };
        return {pack(0), pack(1)};
    }

    /// Each channel as a share of 255.
    static constexpr Table<double, 256> share = [] {
        Table<double, 256> table{};
        for (int channel = 0; channel < 256; ++channel)
            table[channel] = channel / 255.0;
        return table;
    }();

    const HlsTone& a_;
    const HlsTone& b_;
    Doubles red_, green_, blue_, high_, low_;
};

} // namespace kelu
