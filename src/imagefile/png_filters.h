// SPDX-License-Identifier: MIT
// The filters of PNG rows: what is subtracted from each byte of a row.
//
// `step` is the distance in bytes from a byte to its counterpart in the pixel to the left: 1 below 8 bits a pixel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace kelu {

/// The signature that each PNG file starts with.
constexpr uint8_t png_signature[8] = {0x89, 'P', 'N', 'G', 0x0d, 0x0a, 0x1a, 0x0a};

enum PngFilter { PNG_FILTER_NONE, PNG_FILTER_SUB, PNG_FILTER_UP, PNG_FILTER_AVERAGE, PNG_FILTER_PAETH };

/// The published predictor: whichever of left, above and above left is nearest to left + above - above left; ties go
/// in that order.
inline uint8_t paeth(int left, int above, int above_left)
{
    const int to_left = std::abs(above - above_left);
    const int to_above = std::abs(left - above_left);
    const int to_corner = std::abs(left + above - 2 * above_left);
    const int nearest = to_left <= to_above ? left : above;
    return static_cast<uint8_t>(to_corner < to_left && to_corner < to_above ? above_left : nearest);
}

/// Filters `size` bytes of a row into `out` by the Paeth predictor. Both `row` and `above` have `step` zero bytes
/// before their first byte, so the left edge needs no case of its own.
void filter_paeth(const uint8_t* row, const uint8_t* above, std::size_t size, std::size_t step, uint8_t* out);

/// The number of zero bytes that a run begins with, at least; all of it when it has no others.
std::size_t count_zeros(const uint8_t* bytes, std::size_t size);

/// Undoes a filter in place. `above` is the unfiltered row above, of zeros for the first row. False: no such filter.
bool unfilter_row(int filter, uint8_t* row, const uint8_t* above, std::size_t size, std::size_t step);

} // namespace kelu
