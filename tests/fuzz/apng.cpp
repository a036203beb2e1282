// SPDX-License-Identifier: MIT
// Any bytes for the reader of PNG animations.
#include "imagefile/apng.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, 4 * 8 * 1032); // one bit a pixel, deflated
    const auto look = [](const kelu::Bitmap& picture, int) {
        look_at(picture);
        return true;
    };
    kelu::read_apng({data, size}, look);
    return 0;
}
