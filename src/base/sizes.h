// SPDX-License-Identifier: MIT
// Sizes in bytes or pixels from the program's ints.
#pragma once

#include <cstddef>

namespace kelu {

/// `a * b` as a size: two sides of a picture may have a product that no int holds. Both are 0 or more.
constexpr std::size_t product(int a, int b) { return static_cast<std::size_t>(a) * static_cast<std::size_t>(b); }

} // namespace kelu
