// SPDX-License-Identifier: MIT
// Inks that blend a colour with the one pixel under the brush: OPAQUE, ADD, SUB, BRIGHT, DARK, GLASS, GRAIN, XOR.
//
// Channel arithmetic is single precision, and every conversion to an integer truncates.
#include "draw/ink_fours.h"

#include "base/run_state.h"
#include "runtime/random.h"

namespace kelu {

/// The plain colour. At full strength it knows no coverage, so that it paints over a soft stamp of the same stroke; a
/// soft rim blends over the pixel as it is now and builds up.
struct Opaque {
    /// The fixed scale; what has full strength is written always.
    struct OpaqueScale {
        static DabBytes most(DabBytes values) { return values == 0 ? ~DabBytes{} : left_of_mark(values); }
    };

    explicit Opaque(const Canvas&) {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value == 0) {
            *dab.frame = dab.color;
        } else if (dab.tip_value < tip_no_ink && claim(dab, fixed_weight(dab.tip_value))) {
            lay_on(*dab.frame, dab.color, fixed_weight(dab.tip_value));
        }
    }
    void apply_run(const DabRun& run) const
    {
        if (!run.tip_values) {
            std::fill_n(run.frame, run.count, run.color);
            return;
        }
        const Ints color = all_four(run.color);
        by_fours(*this, run, OpaqueScale{}, [&](const DabFour& four) {
            const Ints values = four.tips();
            const Ints full = values == 0;
            const Ints weights = ~full & fixed_weights(values);
            const Ints claimed = four.claim(weights);
            if (none_of(claimed | full)) return;
            const Ints below = load_four(four.frame);
            store_four(four.frame, choose(full, color, choose(claimed, blend_four(below, color, weights), below)));
        });
    }
};

namespace {

/// The frame of ADD and SUB: `channel(source, scaled color)` of each channel, where the colour is scaled by the
/// strength and by the tip.
template <class Channel>
void sum_channels(const Dab& dab, float strength, Channel channel)
{
    if (dab.tip_value >= tip_no_ink) return;
    const int weight = fixed_weight(dab.tip_value);
    if (!claim(dab, weight)) return;
    const float f = dab.tip_value == 0 ? strength : static_cast<float>(weight) / 200.0F * strength;
    const int source = *dab.source;
    *dab.frame = pack_rgb(channel(red_of(source), f * static_cast<float>(red_of(dab.color))),
                          channel(green_of(source), f * static_cast<float>(green_of(dab.color))),
                          channel(blue_of(source), f * static_cast<float>(blue_of(dab.color))));
}

/// What ADD and SUB change in the bytes of a pixel, by tip value, as far as that is the same for every pixel: a float
/// sum that comes near a whole number may be rounded to it with one pixel and not with another.
struct ByteSteps {
    int color = -1;
    float strength = -1;
    Table<int, 256> steps{};
    Table<bool, 256> uneven{}; ///< the step depends on the pixel

    /// Makes the table if it is another one's. `step_of(share, uneven)` gives the step of one channel.
    template <class StepOf>
    void make(float s, int brush, StepOf step_of)
    {
        if (s == strength && brush == color) return;
        *this = {.color = brush, .strength = s};
        for (int tip_value = 0; tip_value < tip_no_ink; ++tip_value) {
            const float f = tip_value == 0 ? s : static_cast<float>(fixed_weight(tip_value)) / 200.0F * s;
            const auto step = [&](int channel) { return step_of(f * static_cast<float>(channel), uneven[tip_value]); };
            steps[tip_value] = pack_rgb(step(red_of(brush)), step(green_of(brush)), step(blue_of(brush)));
        }
    }
    bool even_for(const DabRun& run) const
    {
        if (!run.tip_values) return !uneven[0];
        return std::none_of(run.tip_values, run.tip_values + run.count,
                            [this](uint8_t value) { return uneven[value]; });
    }
};

/// Several steps between floats below 256.
constexpr float near_whole = 1.0F / 8192;

/// A run of ADD or SUB: `combine` of the source and the step of each pixel's tip value.
template <class Ink, class Combine>
void step_bytes(const Ink& ink, const DabRun& run, const ByteSteps& table, Combine combine)
{
    if (!table.even_for(run)) {
        for (int i = 0; i < run.count; ++i)
            ink.apply(run.dab(i));
        return;
    }
    const auto step = [&](const DabFour& four) {
        if (!four.tip_values) return all_four(table.steps[0]);
        const uint8_t* values = four.tip_values;
        return Ints{table.steps[values[0]], table.steps[values[1]], table.steps[values[2]], table.steps[values[3]]};
    };
    by_fours(ink, run, FixedScale{}, [&](const DabFour& four) {
        const Ints claimed = four.claim(fixed_weights(four.tips()));
        if (!none_of(claimed)) four.write(claimed, combine(load_four(four.source) & 0xffffff, step(four)));
    });
}

/// A run of an ink that lays one colour over the source on the strength scale.
template <class Ink>
void blend_run(const Ink& ink, const DabRun& run, int effect)
{
    const Ints color = all_four(effect);
    by_fours(ink, run, StrengthScale{ink.s}, [&](const DabFour& four) {
        const Ints weights = strength_weights(ink.s, four.tips());
        const Ints claimed = four.claim(weights);
        if (!none_of(claimed)) four.write(claimed, blend_four(load_four(four.source), color, weights));
    });
}

} // namespace

/// Adds the colour.
struct Add {
    explicit Add(const Canvas&) : strength(static_cast<float>(ink_strength(INK_ADD)) / 255.0F) {}
    void apply(const Dab& dab) const
    {
        sum_channels(dab, strength, [](int source, float color) {
            return static_cast<int>(std::min(color + static_cast<float>(source), 255.0F));
        });
    }
    void apply_run(const DabRun& run) const
    {
        static ByteSteps steps; // of the colour and strength used last; main thread
        steps.make(strength, run.color, [](float share, bool& uneven) {
            const int whole = static_cast<int>(share);
            uneven = uneven || share - static_cast<float>(whole) > 1 - near_whole;
            return whole;
        });
        step_bytes(*this, run, steps, add_four);
    }
    float strength;
};

/// Subtracts the colour.
struct Sub {
    explicit Sub(const Canvas&) : strength(static_cast<float>(ink_strength(INK_SUB)) / 255.0F) {}
    void apply(const Dab& dab) const
    {
        sum_channels(dab, strength, [](int source, float color) {
            return static_cast<int>(std::max(static_cast<float>(source) - color, 0.0F));
        });
    }
    void apply_run(const DabRun& run) const
    {
        static ByteSteps steps; // as ADD's
        steps.make(strength, run.color, [](float share, bool& uneven) {
            const int whole = static_cast<int>(share);
            const float rest = share - static_cast<float>(whole);
            uneven = uneven || (rest > 0 && rest < near_whole);
            return rest > 0 ? std::min(whole + 1, 255) : whole;
        });
        step_bytes(*this, run, steps, subtract_four);
    }
    float strength;
};

/// Blends towards white.
struct Bright {
    explicit Bright(const Canvas&) : s(ink_strength(INK_BRIGHT)) {}
    void apply(const Dab& dab) const { blend_over_source(dab, s, fixed_colours.white); }
    void apply_run(const DabRun& run) const { blend_run(*this, run, fixed_colours.white); }
    int s;
};

/// Blends towards black.
struct Dark {
    explicit Dark(const Canvas&) : s(ink_strength(INK_DARK)) {}
    void apply(const Dab& dab) const { blend_over_source(dab, s, fixed_colours.black); }
    void apply_run(const DabRun& run) const { blend_run(*this, run, fixed_colours.black); }
    int s;
};

/// Blends towards the colour.
struct Glass {
    explicit Glass(const Canvas&) : s(ink_strength(INK_GLASS)) {}
    void apply(const Dab& dab) const { blend_over_source(dab, s, dab.color); }
    void apply_run(const DabRun& run) const { blend_run(*this, run, run.color); }
    int s;
};

/// GLASS with a random weight, on a random choice of pixels. At full strength the first roll to pass stands for the
/// whole stroke; under a soft tip a later, higher roll replaces it.
struct Grain {
    explicit Grain(const Canvas&) : s(ink_strength(INK_GRAIN)), frequency(ink_option(INK_GRAIN, options::frequency)) {}
    void apply(const Dab& dab) const
    {
        // The roll comes before every other test, so that a cell without ink takes one from the stream as well.
        if (rnd(100) > frequency || dab.tip_value >= tip_no_ink) return;
        if (dab.tip_value == 0) {
            if (!claim(dab, s)) return;
            *dab.frame = *dab.source;
            lay_on(*dab.frame, dab.color, rnd(s));
        } else {
            blend_over_source(dab, rnd(s), dab.color);
        }
    }
    int s, frequency;
};

/// Exclusive or of the channels. The mix runs on 255 less the tip value, the coverage on 200 less it.
struct Xor {
    explicit Xor(const Canvas&) {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink || !claim(dab, fixed_weight(dab.tip_value))) return;
        const int effect = (*dab.source ^ dab.color) & 0xffffff;
        *dab.frame = dab.tip_value == 0 ? effect : mix_colors(*dab.source, effect, 255 - dab.tip_value);
    }
};

template struct InkLoops<Opaque>;
template struct InkLoops<Add>;
template struct InkLoops<Sub>;
template struct InkLoops<Bright>;
template struct InkLoops<Dark>;
template struct InkLoops<Glass>;
template struct InkLoops<Grain>;
template struct InkLoops<Xor>;

} // namespace kelu
