// SPDX-License-Identifier: MIT
// Four pixels at a time, for inks that work on runs. What these functions do is what ink.h does to one pixel.
#pragma once

#include "draw/ink_loops.h"
#include <bit>
#include <cstring>

namespace kelu {

/// Four words side by side: pixels, weights, or masks that are all ones or all zeros.
using Ints = int __attribute__((vector_size(16)));
using Floats = float __attribute__((vector_size(16)));

inline Ints load_four(const int* from)
{
    Ints four;
    std::memcpy(&four, from, sizeof(four));
    return four;
}
inline void store_four(int* to, Ints four) { std::memcpy(to, &four, sizeof(four)); }
inline Ints all_four(int value) { return Ints{value, value, value, value}; }
/// `a` where the mask is set, else `b`.
inline Ints choose(Ints mask, Ints a, Ints b) { return (mask & a) | (~mask & b); }

/// True when the mask is nowhere set.
inline bool none_of(Ints mask)
{
    using Pairs = long long __attribute__((vector_size(16)));
    const Pairs pairs = std::bit_cast<Pairs>(mask);
    return (pairs[0] | pairs[1]) == 0;
}

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

/// Hands a run to `work(const DabFour&)`, and what is left over at its end to the ink.
template <class Ink, class Work>
void by_fours(const Ink& ink, const DabRun& run, Work work)
{
    constexpr int at_once = 4;
    int i = 0;
    for (; i + at_once <= run.count; i += at_once)
        work(
            DabFour{i, run.tip_values ? run.tip_values + i : nullptr, run.frame + i, run.coverage + i, run.source + i});
    for (; i < run.count; ++i)
        ink.apply(run.dab(i));
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
