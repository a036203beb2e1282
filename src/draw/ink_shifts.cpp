// SPDX-License-Identifier: MIT
// Inks that shift the colour of the one pixel under the brush: GRAY, PULL and SPARK.
//
// PULL and SPARK work in HLS in double precision. Their full strength writes the shifted colour; under a soft tip the
// colour takes its whole step and the tip's weight acts through the blend.
#include "colour/hls_pairs.h"
#include "colour/spaces.h"
#include "draw/ink_fours.h"

#include <cmath>
#include <cstdlib>

namespace kelu {
namespace {

int grey_of(int color)
{
    const int grey = (green_of(color) + red_of(color) + blue_of(color)) / 3;
    return pack_rgb(grey, grey, grey);
}

/// Writes a shifted colour: as it is at full strength, else blended over the stroke source.
void put_shifted(const Dab& dab, int shifted, int weight)
{
    if (dab.tip_value == 0) {
        *dab.frame = shifted;
    } else {
        *dab.frame = *dab.source;
        lay_on(*dab.frame, shifted, weight);
    }
}

/// A colour at full strength, and what became of it.
struct ShiftedColor {
    bool known = false;
    int source = 0, shifted = 0;
};

/// As `put_shifted`, with the weights claimed; `shift(HlsPair, first)` gives two shifted colours, those from the first
/// on.
template <class Shift>
void put_shifted_four(const DabFour& four, const HlsTone* tones, ShiftedColor& last, Ints weights, Shift shift)
{
    const Ints claimed = four.claim(weights);
    if (none_of(claimed)) return;
    // Areas of one colour are common.
    const int* const pixels = four.source;
    const bool flat = !four.tip_values && pixels[0] == pixels[1] && pixels[0] == pixels[2] && pixels[0] == pixels[3];
    if (flat) {
        if (!last.known || pixels[0] != last.source)
            last = {true, pixels[0], shift(HlsPair(tones, pixels[0], pixels[0]), 0)[0]};
        four.write(claimed, all_four(last.shifted));
        return;
    }
    const auto pair = [&](int first) {
        if ((claimed[first] | claimed[first + 1]) == 0) return std::array<int, 2>{};
        return shift(HlsPair(tones, four.source[first], four.source[first + 1]), first);
    };
    const auto [a, b] = pair(0);
    const auto [c, d] = pair(2);
    const Ints shifted{a, b, c, d};
    const Ints soft = blend_four(load_four(four.source), shifted, weights);
    four.write(claimed, four.tip_values ? choose(four.tips() == 0, shifted, soft) : shifted);
}

} // namespace

/// Blends towards the pixel's own grey: of the stroke source at full strength, under a soft tip of the pixel as it
/// now is.
struct Gray {
    explicit Gray(const Canvas&) : s(ink_strength(INK_GRAY)) {}
    void apply(const Dab& dab) const
    {
        blend_over_source(dab, s, grey_of(dab.tip_value == 0 ? *dab.source : *dab.frame));
    }
    int s;
};

/// Moves the hue towards that of the brush colour, by the shorter way round.
struct Pull {
    explicit Pull(const Canvas&)
        : s(ink_strength(INK_PULL)), target_hue(rgb_to_hls(toolbox.brush_color).h), full_step(s / 255.0),
          soft_step(static_cast<float>(s) / 255.0F)
    {}

    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink) return;
        const int weight = strength_weight(s, dab.tip_value);
        if (!claim(dab, weight)) return;
        Hls hls = rgb_to_hls(*dab.source);
        hls.h = pulled(hls.h, dab.tip_value == 0 ? full_step : soft_step);
        put_shifted(dab, pack_rgb(hls_to_rgb(hls)), weight);
    }

    void apply_run(const DabRun& run) const
    {
        const HlsTone* const tones = hls_tones();
        ShiftedColor last; // of this run
        by_fours(*this, run, [&](const DabFour& four) {
            put_shifted_four(four, tones, last, strength_weights(s, four.tips()), [&](const HlsPair& hls, int first) {
                const auto step = [&](int i) { return four.tip(i) == 0 ? full_step : double{soft_step}; };
                return hls.with_hue(pulled(hls.hue(), Doubles{step(first), step(first + 1)}));
            });
        });
    }

private:
    /// As below, for two hues.
    Doubles pulled(Doubles hue, Doubles t) const
    {
        const Doubles way = target_hue - hue;
        const Doubles d{static_cast<double>(std::abs(static_cast<int>(way[0]))),
                        static_cast<double>(std::abs(static_cast<int>(way[1])))};
        const Doubles there = t * d;
        const Doubles round = t * (255 - d);
        hue = d < 128 ? (way > 0 ? hue + there : hue - there) : (way > 0 ? hue - round : hue + round);
        hue = hue < 0 ? hue + 255 : hue;
        return hue > 255 ? hue - 255 : hue;
    }

    /// A hue moved by the share `t` of its distance to the target; from 128 on the way leads over the wrap-around.
    double pulled(double hue, double t) const
    {
        const int d = std::abs(static_cast<int>(target_hue - hue));
        if (d < 128) {
            hue = target_hue > hue ? hue + t * d : hue - t * d;
        } else {
            const double step = t * (255 - d);
            hue = target_hue - hue > 0 ? hue - step : hue + step;
        }
        if (hue < 0) hue += 255;
        if (hue > 255) hue -= 255;
        return hue;
    }

    int s;
    double target_hue, full_step;
    float soft_step; ///< s / 255 in single precision, which the partial tip values take
};

/// Raises the saturation.
struct Spark {
    explicit Spark(const Canvas&) : s(ink_strength(INK_SPARK)) {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink) return;
        const float gain = gain_of(dab.tip_value);
        const int weight = static_cast<int>(gain);
        if (!claim(dab, weight)) return;
        Hls hls = rgb_to_hls(*dab.source);
        hls.s = std::min(hls.s + gain, 255.0);
        put_shifted(dab, pack_rgb(hls_to_rgb(hls)), weight);
    }
    void apply_run(const DabRun& run) const
    {
        const HlsTone* const tones = hls_tones();
        ShiftedColor last; // of this run
        by_fours(*this, run, [&](const DabFour& four) {
            const Floats gains{gain_of(four.tip(0)), gain_of(four.tip(1)), gain_of(four.tip(2)), gain_of(four.tip(3))};
            put_shifted_four(four, tones, last, __builtin_convertvector(gains, Ints),
                             [&](const HlsPair& hls, int first) {
                                 return hls.with_saturation(Doubles{gains[first], gains[first + 1]});
                             });
        });
    }

private:
    float gain_of(int tip_value) const
    {
        if (tip_value == 0) return static_cast<float>(s);
        return static_cast<float>(std::max(fixed_weight(tip_value), 0)) / 200.0F * static_cast<float>(s);
    }
    int s;
};

template struct InkLoops<Gray>;
template struct InkLoops<Pull>;
template struct InkLoops<Spark>;

} // namespace kelu
