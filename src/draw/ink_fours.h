// SPDX-License-Identifier: MIT
// Four pixels at a time, for inks that work on runs. What these functions do is what ink.h does to one pixel.
#pragma once

#include "base/fours.h"
#include "draw/ink_loops.h"

namespace kelu {

/// Four pixels of a run.
struct DabFour {
    int first;                 ///< of the run
    const uint8_t* tip_values; ///< null: full strength
    int* frame;
    int* coverage;
    const int* source;

    int tip(int i) const { return tip_values ? tip_values[i] : 0; }
    Ints tips() const
    {
        if (!tip_values) return Ints{};
        using Bytes = uint8_t __attribute__((vector_size(16)));
        using Halves = uint16_t __attribute__((vector_size(16)));
        int packed;
        std::memcpy(&packed, tip_values, sizeof(packed));
        const Bytes bytes = std::bit_cast<Bytes>(Ints{packed, 0, 0, 0});
        const Halves halves =
            std::bit_cast<Halves>(__builtin_shufflevector(bytes, Bytes{}, 0, 16, 1, 17, 2, 18, 3, 19, //
                                                          4, 20, 5, 21, 6, 22, 7, 23));
        return std::bit_cast<Ints>(__builtin_shufflevector(halves, Halves{}, 0, 8, 1, 9, 2, 10, 3, 11));
    }
    /// The mask of the pixels on which no stamp was as strong; their weights are then on record, as with `claim`. A
    /// weight of 0 or less claims nothing.
    Ints claim(Ints weights) const
    {
        const Ints covered = load_four(coverage);
        const Ints claimed = covered < weights;
        if (!none_of(claimed)) store_four(coverage, choose(claimed, weights, covered));
        return claimed;
    }
    void write(Ints mask, Ints pixels) const { store_four(frame, choose(mask, pixels, load_four(frame))); }
};

/// The fixed scale: 0 or less, which is never claimed, where a tip value leaves no mark.
inline Ints fixed_weights(Ints tip_values) { return tip_no_ink - tip_values; }

/// As `strength_weight`; 0 or less where a tip value leaves no mark.
inline Ints strength_weights(int s, Ints tip_values)
{
    const Floats share = static_cast<float>(s) / 255.0F * __builtin_convertvector(tip_no_ink - tip_values, Floats);
    return choose(tip_values == 0, all_four(s), __builtin_convertvector(share, Ints));
}

/// 16 bytes side by side: tip values or weights.
using DabBytes = uint8_t __attribute__((vector_size(16)));

/// The low bytes of 16 words.
inline DabBytes low_bytes(const int* words)
{
    const auto even = [](DabBytes a, DabBytes b) {
        return __builtin_shufflevector(a, b, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
    };
    const auto at = [words](int i) { return std::bit_cast<DabBytes>(load_four(words + i)); };
    return even(even(at(0), at(4)), even(at(8), at(12)));
}

/// What a tip value leaves of the full mark: 200 to 0.
inline DabBytes left_of_mark(DabBytes values)
{
    const DabBytes most = DabBytes{} + uint8_t{tip_no_ink};
    return most - (values < most ? values : most);
}

/// The scales of weights: what a stamp weighs at most, by its tip values. Nearly all pixels under a stamp have been
/// claimed by the one before it, and need no closer look.
struct FixedScale {
    static DabBytes most(DabBytes values) { return left_of_mark(values); }
};
struct StrengthScale {
    int s;

    DabBytes most(DabBytes values) const
    {
        using Halves = uint16_t __attribute__((vector_size(16)));
        const DabBytes left = left_of_mark(values);
        // A 256th for a 255th takes less than 1 away.
        const auto share = [this](Halves marks) {
            return std::bit_cast<DabBytes>((marks * static_cast<uint16_t>(s) >> 8) + uint16_t{1});
        };
        const DabBytes shares = __builtin_shufflevector(
            share(std::bit_cast<Halves>(
                __builtin_shufflevector(left, DabBytes{}, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23))),
            share(std::bit_cast<Halves>(__builtin_shufflevector(left, DabBytes{}, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28,
                                                                13, 29, 14, 30, 15, 31))),
            0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
        const DabBytes full = DabBytes{} + static_cast<uint8_t>(s);
        return values == 0 ? full : left > 0 ? shares : left;
    }
};
/// Of inks whose weights can't be told by the tip alone.
struct AnyScale {
    static DabBytes most(DabBytes values) { return ~DabBytes{} | values; }
};

/// Of 16 pixels from the i-th on: a mask of the fours of them that a stamp may claim.
template <class Scale>
Ints open_fours(const Scale& scale, const DabRun& run, int i)
{
    DabBytes values;
    std::memcpy(&values, run.tip_values + i, sizeof(values));
    return std::bit_cast<Ints>(scale.most(values) > low_bytes(run.coverage + i));
}

/// Hands a run to `work(const DabFour&)`, four pixels at a time but for those that the scale tells to be claimed, and a
/// run of less than four to the ink.
template <class Ink, class Scale, class Work>
void by_fours(const Ink& ink, const DabRun& run, const Scale& scale, Work work)
{
    constexpr int at_once = 4, looked_over = 16;
    const auto four = [&](int i) {
        work(
            DabFour{i, run.tip_values ? run.tip_values + i : nullptr, run.frame + i, run.coverage + i, run.source + i});
    };
    int i = 0;
    for (; run.tip_values && i + looked_over <= run.count; i += looked_over) {
        const Ints open = open_fours(scale, run, i);
        for (int k = 0; k < looked_over / at_once; ++k)
            if (open[k] != 0) four(i + k * at_once);
    }
    for (; i + at_once <= run.count; i += at_once)
        four(i);
    if (i < run.count && run.count >= at_once) {
        four(run.count - at_once); // some of them once more, which does nothing to them
    } else {
        for (; i < run.count; ++i)
            ink.apply(run.dab(i));
    }
}

/// As `blend_pixel`, at alphas of 1 to 255.
inline Ints blend_four(Ints below, Ints color, Ints alphas)
{
    using Halves = uint16_t __attribute__((vector_size(16)));
    const auto mixed = [](Ints a, Halves g, Ints b, Halves f) {
        return std::bit_cast<Ints>((std::bit_cast<Halves>(a) * g >> 8) + (std::bit_cast<Halves>(b) * f >> 8));
    };
    constexpr int two_channels = 0xff00ff;
    const Halves f = std::bit_cast<Halves>(alphas | alphas << 16) + uint16_t{1};
    const Halves g = uint16_t{256} - f;
    return mixed(below & two_channels, g, color & two_channels, f) | mixed(below >> 8 & 0xff, g, color >> 8 & 0xff, f)
                                                                         << 8;
}

/// Byte by byte a + b, at most 255.
inline Ints add_four(Ints a, Ints b)
{
    using Bytes = uint8_t __attribute__((vector_size(16)));
    const Bytes below = std::bit_cast<Bytes>(a);
    const Bytes sum = below + std::bit_cast<Bytes>(b);
    return std::bit_cast<Ints>(sum | std::bit_cast<Bytes>(sum < below));
}

/// Byte by byte a - b, at least 0.
inline Ints subtract_four(Ints a, Ints b)
{
    using Bytes = uint8_t __attribute__((vector_size(16)));
    const Bytes from = std::bit_cast<Bytes>(a);
    const Bytes rest = from - std::bit_cast<Bytes>(b);
    return std::bit_cast<Ints>(rest & std::bit_cast<Bytes>(rest <= from));
}

} // namespace kelu
