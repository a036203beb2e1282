// SPDX-License-Identifier: MIT
// The 3 x 3 block round a pixel, for inks that look at the neighbours.
#pragma once

#include "draw/ink_fours.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace kelu {

/// Calls `visit(pixel, index)` for the pixels of the 3 x 3 block round (x, y) that lie in the frame, row by row; the
/// index counts the whole block, 4 is the centre. `line_of(y)` gives the line to read.
template <class LineOf, class Visit>
void visit_block(const Canvas& canvas, int x, int y, LineOf line_of, Visit visit)
{
    const bool has_left = x > 0;
    const bool has_right = x + 1 < canvas.frame->w;
    for (int dy = -1; dy <= 1; ++dy) {
        if (y + dy < 0 || y + dy >= canvas.frame->h) continue;
        const int* pixel = line_of(y + dy) + x;
        const int index = 3 * (dy + 1);
        if (has_left) visit(pixel[-1], index);
        visit(pixel[0], index + 1);
        if (has_right) visit(pixel[1], index + 2);
    }
}

constexpr int block_center = 4; ///< index of the pixel itself

/// The block of the stroke source. A source of another size than the frame is read pixel by pixel.
template <class Visit>
void visit_source(const Canvas& canvas, int x, int y, Visit visit)
{
    if (canvas.source->w == canvas.frame->w && canvas.source->h == canvas.frame->h) {
        visit_block(
            canvas, x, y, [&](int line) { return row(canvas.source, line); }, visit);
        return;
    }
    for (int i = 0; i < 9; ++i) {
        const int nx = x + i % 3 - 1;
        const int ny = y + i / 3 - 1;
        if (canvas.has(nx, ny)) visit(*canvas.source_at(nx, ny), i);
    }
}

/// The block of the frame as it is now.
template <class Visit>
void visit_frame(const Canvas& canvas, int x, int y, Visit visit)
{
    visit_block(
        canvas, x, y, [&](int line) { return row(canvas.frame, line); }, visit);
}

/// Four numbers that the processor works on at once: blue, green and red of a pixel, and its unused byte.
using Channels = float __attribute__((vector_size(16)));

inline Channels channels_of(int pixel)
{
    using Bytes = uint8_t __attribute__((vector_size(16)));
    using Halves = uint16_t __attribute__((vector_size(16)));
    using Words = int __attribute__((vector_size(16)));
    const Bytes bytes = std::bit_cast<Bytes>(Words{pixel, 0, 0, 0});
    const Halves halves = std::bit_cast<Halves>(__builtin_shufflevector(bytes, Bytes{}, 0, 16, 1, 17, 2, 18, 3, 19, //
                                                                        4, 20, 5, 21, 6, 22, 7, 23));
    const Halves words = __builtin_shufflevector(halves, Halves{}, 0, 8, 1, 9, 2, 10, 3, 11);
    return __builtin_convertvector(std::bit_cast<Words>(words), Channels);
}

/// Sums of the channels over the block of the stroke source, row by row, each pixel times its weight. A weight of 0
/// leaves a pixel out: it adds nothing.
inline Channels weighted_sum(const Canvas& canvas, int x, int y, const std::array<float, 9>& weights)
{
    Channels sum{};
    visit_source(canvas, x, y, [&](int pixel, int index) { sum += channels_of(pixel) * weights[index]; });
    return sum;
}

/// Each channel clamped to 0 to 255 and truncated.
inline int pack_clamped(const Channels& bgr)
{
    const auto clamped = [](float channel) { return static_cast<int>(std::clamp(channel, 0.0F, 255.0F)); };
    return pack_rgb(clamped(bgr[2]), clamped(bgr[1]), clamped(bgr[0]));
}

/// Weight of a neighbour: the strength, thinned by the tip.
inline float thinned(float strength, int tip_value)
{
    return tip_value == 0 ? strength : static_cast<float>(fixed_weight(tip_value)) / 200.0F * strength;
}

} // namespace kelu
