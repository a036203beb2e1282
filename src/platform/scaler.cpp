// SPDX-License-Identifier: MIT
// The scaler: one row is widened by a loop of fixed scale, and then copied for the rows below it.
#include "platform/scaler.h"
#include "base/sizes.h"

#include "base/bitmap.h"
#include <array>
#include <cstring>
#include <utility>

namespace kelu::platform {
namespace {

constexpr int exchange_red_and_blue(int color)
{
    return (color & 0x00ff00) | (color >> 16 & 0xff) | (color & 0xff) << 16;
}

/// Writes each of `count` pixels `scale` times.
template <int scale, ChannelOrder order>
void widen(const int* from, int* to, int count)
{
    for (int i = 0; i < count; ++i) {
        const int color = order == ChannelOrder::PLAIN ? from[i] : exchange_red_and_blue(from[i]);
        for (int k = 0; k < scale; ++k)
            to[i * scale + k] = color;
    }
}

using Widen = void (*)(const int* from, int* to, int count);

/// One loop a scale, `min_scale` first.
template <ChannelOrder order, int... step>
constexpr auto widen_loops(std::integer_sequence<int, step...>)
{
    return std::array<Widen, sizeof...(step)>{widen<min_scale + step, order>...};
}
constexpr auto scales = std::make_integer_sequence<int, max_scale - min_scale + 1>();
constexpr auto plain_loops = widen_loops<ChannelOrder::PLAIN>(scales);
constexpr auto exchanged_loops = widen_loops<ChannelOrder::EXCHANGED>(scales);

} // namespace

void scale_rows(BITMAP* picture, BITMAP* scaled, int scale, int first, int last, ChannelOrder order)
{
    const int loop = scale - min_scale;
    const Widen widen_row = order == ChannelOrder::PLAIN ? plain_loops[loop] : exchanged_loops[loop];
    const std::size_t row_bytes = product(picture->w, scale) * sizeof(int);
    for (int y = first; y <= last; ++y) {
        int* const top = row(scaled, y * scale);
        widen_row(row(picture, y), top, picture->w);
        for (int k = 1; k < scale; ++k)
            std::memcpy(row(scaled, y * scale + k), top, row_bytes);
    }
}

} // namespace kelu::platform
