// SPDX-License-Identifier: MIT
// The blocks of a GIF file, for the readers and writers of pictures and of animations.
#pragma once

#include "base/reader.h"
#include <span>
#include <vector>

namespace kelu {

enum GifBlock : int { GIF_EXTENSION = 0x21, GIF_IMAGE = 0x2c, GIF_END = 0x3b };
constexpr int gif_control_label = 0xf9;     ///< extension: delay, disposal and transparent index of the next image
constexpr int gif_application_label = 0xff; ///< extension: among others, how often the animation runs

/// Bit 7 of a packed byte says that there is a table; its low three bits say how many entries it has.
constexpr int gif_packed_table = 0x80;
constexpr int gif_packed_interlaced = 0x40;
constexpr int gif_table_entries(int packed) { return packed & gif_packed_table ? 1 << ((packed & 7) + 1) : 0; }

/// What a control block says of the image that follows.
struct GifControl {
    int transparent = -1; ///< index that isn't painted, -1 for none
    int disposal = 0;     ///< a GifDisposal; anything else keeps the image as well
    int hundredths = 0;   ///< how long it shows
};

/// Walks to the descriptor of the next image; false at the end of the file. Stray bytes between blocks are passed over.
bool find_gif_image(ByteReader& in, GifControl& control);

/// The rows of an image in the order of the file. An interlaced one keeps every eighth row first, then the rows
/// between, in four passes.
inline std::vector<int> gif_row_order(int height, bool is_interlaced)
{
    struct Pass {
        int first, step;
    };
    constexpr Pass plain[] = {{0, 1}};
    constexpr Pass interlaced[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
    std::vector<int> order;
    for (const auto [first, step] : is_interlaced ? std::span<const Pass>(interlaced) : std::span<const Pass>(plain)) {
        for (int y = first; y < height; y += step)
            order.push_back(y);
    }
    return order;
}

} // namespace kelu
