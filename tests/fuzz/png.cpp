// SPDX-License-Identifier: MIT
// Any bytes for the PNG reader.
#include "imagefile/png.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, 4 * 8 * 1032); // one bit a pixel, deflated
    look_at(kelu::decode_png({data, size}));
    return 0;
}
