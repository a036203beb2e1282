// SPDX-License-Identifier: MIT
// Filtering and unfiltering of PNG rows.
#include "imagefile/png_filters.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kelu {
namespace {

/// The bytes of one pixel.
template <std::size_t step>
using Pixel = std::array<uint8_t, step>;

template <std::size_t step>
void undo_sub(uint8_t* row, std::size_t size)
{
    Pixel<step> left{};
    for (std::size_t i = 0; i < size; i += step) {
        for (std::size_t k = 0; k < step; ++k)
            row[i + k] = left[k] = static_cast<uint8_t>(row[i + k] + left[k]);
    }
}

void undo_up(uint8_t* row, const uint8_t* above, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i)
        row[i] = static_cast<uint8_t>(row[i] + above[i]);
}

template <std::size_t step>
void undo_average(uint8_t* row, const uint8_t* above, std::size_t size)
{
    Pixel<step> left{};
    for (std::size_t i = 0; i < size; i += step) {
        for (std::size_t k = 0; k < step; ++k)
            row[i + k] = left[k] = static_cast<uint8_t>(row[i + k] + (left[k] + above[i + k]) / 2);
    }
}

template <std::size_t step>
void undo_paeth(uint8_t* row, const uint8_t* above, std::size_t size)
{
    Pixel<step> left{}, corner{};
    for (std::size_t i = 0; i < size;) {
        // Where left and above left are the same the byte above is predicted. So pixels without a difference repeat
        // the row above for as long as they go on.
        if (row[i] == 0 && left == corner) {
            const std::size_t same = count_zeros(row + i, size - i) / step * step;
            if (same > 0) {
                std::memcpy(row + i, above + i, same);
                i += same;
                std::copy_n(above + i - step, step, left.begin());
                corner = left;
                continue;
            }
        }
        for (std::size_t k = 0; k < step; ++k, ++i) {
            row[i] = left[k] = static_cast<uint8_t>(row[i] + paeth(left[k], above[i], corner[k]));
            corner[k] = above[i];
        }
    }
}

template <std::size_t step>
void undo(int filter, uint8_t* row, const uint8_t* above, std::size_t size)
{
    switch (filter) {
    case PNG_FILTER_SUB:
        return undo_sub<step>(row, size);
    case PNG_FILTER_UP:
        return undo_up(row, above, size);
    case PNG_FILTER_AVERAGE:
        return undo_average<step>(row, above, size);
    case PNG_FILTER_PAETH:
        return undo_paeth<step>(row, above, size);
    default:
        return;
    }
}

} // namespace

void filter_paeth(const uint8_t* row, const uint8_t* above, std::size_t size, std::size_t step, uint8_t* out)
{
    const uint8_t* left = row - step;
    const uint8_t* above_left = above - step;
    for (std::size_t i = 0; i < size; ++i)
        out[i] = static_cast<uint8_t>(row[i] - paeth(left[i], above[i], above_left[i]));
}

std::size_t count_zeros(const uint8_t* bytes, std::size_t size)
{
    std::size_t i = 0;
    for (uint64_t word; i + sizeof word <= size; i += sizeof word) {
        std::memcpy(&word, bytes + i, sizeof word);
        if (word != 0) return i;
    }
    return static_cast<std::size_t>(std::find_if(bytes + i, bytes + size, [](uint8_t b) { return b != 0; }) - bytes);
}

bool unfilter_row(int filter, uint8_t* row, const uint8_t* above, std::size_t size, std::size_t step)
{
    if (filter > PNG_FILTER_PAETH) return false;
    switch (step) {
    case 1:
        undo<1>(filter, row, above, size);
        break;
    case 2:
        undo<2>(filter, row, above, size);
        break;
    case 3:
        undo<3>(filter, row, above, size);
        break;
    case 4:
        undo<4>(filter, row, above, size);
        break;
    case 6:
        undo<6>(filter, row, above, size);
        break;
    default:
        undo<8>(filter, row, above, size);
    }
    return true;
}

} // namespace kelu
