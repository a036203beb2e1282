// SPDX-License-Identifier: MIT
// Any bytes for the reader of animated GIFs.
#include "imagefile/gif_animation.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, 4 * 2731); // see `lzw_most_a_byte`
    const auto look = [](const kelu::Bitmap& picture, int) {
        look_at(picture);
        return true;
    };
    kelu::read_gif_animation({data, size}, look);
    return 0;
}
