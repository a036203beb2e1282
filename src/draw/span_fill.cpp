// SPDX-License-Identifier: MIT
// The runs of filled shapes.
#include "draw/span_fill.h"

#include "draw/inks.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include <algorithm>

namespace kelu {

void fill_span(int left, int right, int y, int ink)
{
    constexpr int piece = 64; // pixels between two display tests: some milliseconds of the slowest ink
    if (y < 0 || y >= store.frame_bitmap.height()) return;
    const int end = std::min(right, store.frame_bitmap.width() - 1);
    for (int x = std::max(left, 0); x <= end; x += piece) {
        span_ink(x, std::min(x + piece - 1, end), y, ink, toolbox.brush_color);
        keep_picture_alive();
    }
}

} // namespace kelu
