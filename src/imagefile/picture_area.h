// SPDX-License-Identifier: MIT
// The rectangles of pictures that change from one to the next.
#pragma once

#include "base/bitmap.h"
#include <algorithm>

namespace kelu {

/// A rectangle of pixels; the right and bottom ends lie outside.
struct PictureArea {
    int left = 0, top = 0, right = 0, bottom = 0;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    long pixels() const { return static_cast<long>(width()) * height(); }
    /// The smallest one that holds both.
    PictureArea with(const PictureArea& other) const
    {
        if (pixels() == 0) return other;
        if (other.pixels() == 0) return *this;
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }
};

/// The smallest rectangle around the pixels for which the test of before and after holds; both of one size.
template <class Test>
PictureArea area_where(BITMAP* before, BITMAP* after, Test holds)
{
    PictureArea area;
    for (int y = 0; y < after->h; ++y) {
        const int* from = row(before, y);
        const int* to = row(after, y);
        int left = 0, right = after->w;
        while (left < right && !holds(from[left], to[left]))
            ++left;
        if (left == right) continue;
        while (!holds(from[right - 1], to[right - 1]))
            --right;
        area = area.with({left, y, right, y + 1});
    }
    return area;
}

/// The smallest rectangle around what has changed; one pixel when nothing has.
inline PictureArea changed_area(BITMAP* before, BITMAP* after)
{
    const PictureArea area = area_where(before, after, [](int from, int to) { return from != to; });
    return area.pixels() > 0 ? area : PictureArea{0, 0, 1, 1};
}

} // namespace kelu
