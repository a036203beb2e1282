// SPDX-License-Identifier: MIT
// The walk over the blocks of a GIF file.
#include "imagefile/gif_blocks.h"

namespace kelu {
namespace {

/// Reads one extension to its empty sub-block.
void read_extension(ByteReader& in, GifControl& control)
{
    const int label = in.byte();
    for (int size = in.byte(); size > 0; size = in.byte()) {
        ByteReader block(in.take(static_cast<std::size_t>(size)));
        if (label != gif_control_label) continue;
        const int flags = block.byte();
        control.disposal = flags >> 2 & 7;
        control.hundredths = block.little16();
        control.transparent = flags & 1 ? block.byte() : -1;
    }
}

} // namespace

bool find_gif_image(ByteReader& in, GifControl& control)
{
    while (!in.ended()) {
        switch (in.byte()) {
        case GIF_EXTENSION:
            read_extension(in, control);
            break;
        case GIF_IMAGE:
            return true;
        case GIF_END:
            return false;
        default:
            break;
        }
    }
    return false;
}

} // namespace kelu
