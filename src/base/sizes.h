// SPDX-License-Identifier: MIT
// Sizes in bytes or pixels from the program's ints.
#pragma once

#include "base/bitmap.h"
#include <cstddef>

namespace kelu {

/// `a * b` as a size: two sides of a picture may have a product that no int holds. Both are 0 or more.
constexpr std::size_t product(int a, int b) { return static_cast<std::size_t>(a) * static_cast<std::size_t>(b); }

/// Pixels that a picture may have however few bytes describe it, 64 MB of them: some formats leave out what has the
/// colour of the ground.
constexpr std::size_t pixels_for_nothing = max_bitmap_pixels >> 3;

/// True when a picture of so many pixels may come from `bytes` bytes of a file, of which each stands for `most_a_byte`
/// pixels at most. So a reader asks for no more memory than a true file of that size would need.
constexpr bool may_hold(std::size_t bytes, std::size_t pixels, std::size_t most_a_byte)
{
    return pixels <= pixels_for_nothing || pixels / most_a_byte <= bytes;
}

} // namespace kelu
