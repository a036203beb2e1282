// SPDX-License-Identifier: MIT
// An array that the program's own ints and enums index.
#pragma once

#include <array>
#include <cstddef>

namespace kelu {

/// A std::array whose index may be an int or an unscoped enum as well. An index is not checked: who takes it from a
/// file or a user brings it into range first.
template <class T, std::size_t N>
struct Table : std::array<T, N> {
    using Base = std::array<T, N>;

    constexpr T& operator[](std::size_t index) { return Base::operator[](index); }
    constexpr const T& operator[](std::size_t index) const { return Base::operator[](index); }
    constexpr T& operator[](int index) { return Base::operator[](static_cast<std::size_t>(index)); }
    constexpr const T& operator[](int index) const { return Base::operator[](static_cast<std::size_t>(index)); }
};

} // namespace kelu
