// SPDX-License-Identifier: MIT
// Filtering and unfiltering of PNG rows.
#include "imagefile/png_filters.h"

#include <algorithm>

namespace kelu {
namespace {

void undo_sub(uint8_t* row, std::size_t size, std::size_t step)
{
    for (std::size_t i = step; i < size; ++i)
        row[i] = static_cast<uint8_t>(row[i] + row[i - step]);
}

void undo_up(uint8_t* row, const uint8_t* above, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i)
        row[i] = static_cast<uint8_t>(row[i] + above[i]);
}

void undo_average(uint8_t* row, const uint8_t* above, std::size_t size, std::size_t step)
{
    for (std::size_t i = 0; i < std::min(step, size); ++i)
        row[i] = static_cast<uint8_t>(row[i] + above[i] / 2);
    for (std::size_t i = step; i < size; ++i)
        row[i] = static_cast<uint8_t>(row[i] + (row[i - step] + above[i]) / 2);
}

void undo_paeth(uint8_t* row, const uint8_t* above, std::size_t size, std::size_t step)
{
    // In the first pixel left and corner are 0, and the predictor is the byte above.
    undo_up(row, above, std::min(step, size));
    for (std::size_t i = step; i < size; ++i)
        row[i] = static_cast<uint8_t>(row[i] + paeth(row[i - step], above[i], above[i - step]));
}

} // namespace

void filter_paeth(const uint8_t* row, const uint8_t* above, std::size_t size, std::size_t step, uint8_t* out)
{
    const uint8_t* left = row - step;
    const uint8_t* above_left = above - step;
    for (std::size_t i = 0; i < size; ++i)
        out[i] = static_cast<uint8_t>(row[i] - paeth(left[i], above[i], above_left[i]));
}

bool unfilter_row(int filter, uint8_t* row, const uint8_t* above, std::size_t size, std::size_t step)
{
    switch (filter) {
    case PNG_FILTER_NONE:
        return true;
    case PNG_FILTER_SUB:
        undo_sub(row, size, step);
        return true;
    case PNG_FILTER_UP:
        undo_up(row, above, size);
        return true;
    case PNG_FILTER_AVERAGE:
        undo_average(row, above, size, step);
        return true;
    case PNG_FILTER_PAETH:
        undo_paeth(row, above, size, step);
        return true;
    default:
        return false;
    }
}

} // namespace kelu
