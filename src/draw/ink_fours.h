// Four pixels at a time, for inks that work on runs. What these functions do is what ink.h does to one pixel.
#pragma once

#include "draw/ink_loops.h"
#include <array>
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

/// A number for each tip value.
using ByTipValue = std::array<int, 256>;

/// The fixed scale: 0, which is never claimed, where a tip value leaves no mark.
constexpr ByTipValue fixed_weights = [] {
    ByTipValue weights{};
    for (int tip_value = 0; tip_value < tip_no_ink; ++tip_value)
        weights[static_cast<std::size_t>(tip_value)] = fixed_weight(tip_value);
    return weights;
}();

/// The strength scale. Keeps the table of the strength that was asked for last. Main thread.
inline const ByTipValue& strength_weights(int s)
{
    static ByTipValue weights{};
    static int made_for = -1;
    if (s != made_for) {
        made_for = s;
        for (int tip_value = 0; tip_value < tip_no_ink; ++tip_value)
            weights[static_cast<std::size_t>(tip_value)] = strength_weight(s, tip_value);
    }
    return weights;
}

/// Four pixels of a run.
struct DabFour {
    const uint8_t* tip_values; ///< null: full strength
    int* frame;
    int* coverage;
    const int* source;

    /// The numbers of the four tip values.
    Ints by_tip_value(const ByTipValue& table) const
    {
        if (!tip_values) return all_four(table[0]);
        return Ints{table[tip_values[0]], table[tip_values[1]], table[tip_values[2]], table[tip_values[3]]};
    }
    /// As `claim`: the mask of the pixels on which no stamp was as strong.
    Ints claim(Ints weights) const
    {
        const Ints covered = load_four(coverage);
        const Ints claimed = covered < weights;
        store_four(coverage, choose(claimed, weights, covered));
        return claimed;
    }
    void write(Ints mask, Ints pixels) const { store_four(frame, choose(mask, pixels, load_four(frame))); }
};

/// Hands a run to `work(const DabFour&)`. What is left over at its end is filled up with pixels without ink.
template <class Work>
void by_fours(const DabRun& run, Work work)
{
    constexpr int at_once = 4;
    int i = 0;
    for (; i + at_once <= run.count; i += at_once)
        work(DabFour{run.tip_values ? run.tip_values + i : nullptr, run.frame + i, run.coverage + i, run.source + i});
    const int left = run.count - i;
    if (left == 0) return;
    std::array<uint8_t, at_once> tip_values{255, 255, 255, 255};
    std::array<int, at_once> frame{};
    std::array<int, at_once> coverage{};
    std::array<int, at_once> source{};
    std::copy_n(run.frame + i, left, frame.begin());
    std::copy_n(run.coverage + i, left, coverage.begin());
    std::copy_n(run.source + i, left, source.begin());
    if (run.tip_values) {
        std::copy_n(run.tip_values + i, left, tip_values.begin());
    } else {
        std::fill_n(tip_values.begin(), left, uint8_t{0});
    }
    work(DabFour{tip_values.data(), frame.data(), coverage.data(), source.data()});
    std::copy_n(frame.begin(), left, run.frame + i);
    std::copy_n(coverage.begin(), left, run.coverage + i);
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
