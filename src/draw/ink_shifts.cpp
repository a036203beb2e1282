// SPDX-License-Identifier: MIT
// Inks that shift the colour of the one pixel under the brush: GRAY, PULL and SPARK.
//
// PULL and SPARK work in HLS in double precision; runs do so in single precision, and once more in double where that
// could give another colour. Their full strength writes the shifted colour; under a soft tip the
// colour takes its whole step and the tip's weight acts through the blend.
#include "colour/hls_fours.h"
#include "colour/hls_pairs.h"
#include "colour/spaces.h"
#include "draw/ink_fours.h"

#include <cmath>
#include <cstdlib>
#include <vector>

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

/// What the conversions look up.
struct HlsTables {
    const HlsTone* tones = hls_tones();
    const uint8_t* drops = hls_drops();
};

/// A colour at full strength, and what became of it.
struct ShiftedColor {
    bool known = false;
    int source = 0, shifted = 0;
};

/// What became of colours, for a soft tip, which passes over each pixel many times. Main thread.
class ShiftedColors {
public:
    /// Forgets all unless the colours are still shifted in that way.
    void begin(int strength, double target)
    {
        if (strength == strength_ && target == target_) return;
        strength_ = strength;
        target_ = target;
        entries_.assign(size, {});
    }
    /// True when all pixels under the mask are known; then `shifted` has them.
    bool find(Ints pixels, Ints mask, Ints& shifted) const
    {
        for (int i = 0; i < 4; ++i) {
            if (mask[i] == 0) continue;
            const Entry& entry = entries_[place(pixels[i])];
            if (entry.source != pixels[i]) return false;
            shifted[i] = entry.shifted;
        }
        return true;
    }
    void keep(Ints pixels, const HlsResult& result)
    {
        for (int i = 0; i < 4; ++i)
            if (result.doubtful[i] == 0) entries_[place(pixels[i])] = {pixels[i], result.colors[i]};
    }

private:
    static constexpr int size_bits = 11, size = 1 << size_bits;
    struct Entry {
        int source = -1, shifted = 0; ///< -1: none
    };
    static std::size_t place(int color)
    {
        constexpr uint32_t spread = 0x9e3779b1;
        return static_cast<uint32_t>(color) * spread >> (32 - size_bits);
    }
    std::vector<Entry> entries_;
    int strength_ = -1;
    double target_ = 0;
};

/// As `put_shifted`, with the weights claimed. `shift_all(HlsFour)` shifts four colours, and `shift(HlsPair, first)`
/// the two from the first on, where that is in doubt. `known` has what colours were shifted to before, if that is the
/// same for every tip value.
template <class ShiftAll, class Shift>
void put_shifted_four(const DabFour& four, const HlsTables& tables, ShiftedColor& last, Ints weights,
                      ShiftAll shift_all, Shift shift, ShiftedColors* known = nullptr)
{
    const Ints claimed = four.claim(weights);
    if (none_of(claimed)) return;
    // Areas of one colour are common.
    const int* const pixels = four.source;
    const bool flat = !four.tip_values && pixels[0] == pixels[1] && pixels[0] == pixels[2] && pixels[0] == pixels[3];
    if (flat) {
        if (!last.known || pixels[0] != last.source)
            last = {true, pixels[0], shift(HlsPair(tables.tones, pixels[0], pixels[0]), 0)[0]};
        four.write(claimed, all_four(last.shifted));
        return;
    }
    const Ints sources = load_four(pixels) & 0xffffff;
    Ints shifted{};
    if (!known || !four.tip_values || !known->find(sources, claimed, shifted)) {
        const HlsResult result = shift_all(HlsFour(tables.drops, sources));
        if (known && four.tip_values) known->keep(sources, result);
        const Ints doubtful = result.doubtful & claimed;
        shifted = result.colors;
        for (int first = 0; first < 4; first += 2) {
            if ((doubtful[first] | doubtful[first + 1]) == 0) continue;
            const auto [a, b] = shift(HlsPair(tables.tones, pixels[first], pixels[first + 1]), first);
            shifted[first] = a;
            shifted[first + 1] = b;
        }
    }
    const Ints soft = blend_four(sources, shifted, weights);
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
    {
        known.begin(s, target_hue);
    }

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
        ShiftedColor last; // of this run
        by_fours(*this, run, StrengthScale{s}, [&](const DabFour& four) {
            put_shifted_four(
                four, tables, last, strength_weights(s, four.tips()), [&](const HlsFour& hls) { return pulled(hls); },
                [&](const HlsPair& hls, int first) {
                    const auto step = [&](int i) { return four.tip(i) == 0 ? full_step : double{soft_step}; };
                    return hls.with_hue(pulled(hls.hue(), Doubles{step(first), step(first + 1)}));
                },
                &known);
        });
    }

private:
    /// As below, for four colours in single precision, in which full and soft step are the same.
    HlsResult pulled(const HlsFour& hls) const
    {
        constexpr float bound = 1e-3F; // of steps of hue
        Floats hue = hls.hue();
        const Floats way = static_cast<float>(target_hue) - hue;
        const Floats d = to_floats(to_ints(size_of(way)));
        const Ints direct = d < 128;
        const Floats step = soft_step * choose(direct, d, 255 - d);
        hue += choose(direct == (way > 0), step, -step);
        hue = choose(hue < 0, hue + 255, hue);
        hue = choose(hue > 255, hue - 255, hue);
        HlsResult result = hls.with_hue(hue);
        result.doubtful |= near_integer(size_of(way), bound) & ~hls.greys();
        return result;
    }

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
    static inline ShiftedColors known;
    HlsTables tables;
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
        ShiftedColor last; // of this run
        by_fours(*this, run, AnyScale{}, [&](const DabFour& four) {
            const Floats gains{gain_of(four.tip(0)), gain_of(four.tip(1)), gain_of(four.tip(2)), gain_of(four.tip(3))};
            put_shifted_four(
                four, tables, last, to_ints(gains), [&](const HlsFour& hls) { return hls.with_saturation(gains); },
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
    HlsTables tables;
    int s;
};

template struct InkLoops<Gray>;
template struct InkLoops<Pull>;
template struct InkLoops<Spark>;

} // namespace kelu
