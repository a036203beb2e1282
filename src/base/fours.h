// SPDX-License-Identifier: MIT
// Four numbers that the processor works on at once.
#pragma once

#include <bit>
#include <cstdint>
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
inline Floats choose(Ints mask, Floats a, Floats b)
{
    return std::bit_cast<Floats>(choose(mask, std::bit_cast<Ints>(a), std::bit_cast<Ints>(b)));
}

/// True when the mask is nowhere set.
inline bool none_of(Ints mask)
{
    using Pairs = long long __attribute__((vector_size(16)));
    const Pairs pairs = std::bit_cast<Pairs>(mask);
    return (pairs[0] | pairs[1]) == 0;
}

/// Of numbers of 0 to 32767.
inline Ints larger(Ints a, Ints b)
{
    using Halves = int16_t __attribute__((vector_size(16)));
    const Halves x = std::bit_cast<Halves>(a), y = std::bit_cast<Halves>(b);
    return std::bit_cast<Ints>(x > y ? x : y);
}
inline Ints smaller(Ints a, Ints b)
{
    using Halves = int16_t __attribute__((vector_size(16)));
    const Halves x = std::bit_cast<Halves>(a), y = std::bit_cast<Halves>(b);
    return std::bit_cast<Ints>(x < y ? x : y);
}

inline Floats to_floats(Ints four) { return __builtin_convertvector(four, Floats); }
/// Truncated toward zero.
inline Ints to_ints(Floats four) { return __builtin_convertvector(four, Ints); }
inline Floats size_of(Floats four) { return std::bit_cast<Floats>(std::bit_cast<Ints>(four) & 0x7fffffff); }

} // namespace kelu
