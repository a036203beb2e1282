// SPDX-License-Identifier: MIT
// Any bytes for the BMP reader.
#include "imagefile/bmp.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, 4 * 128); // a run of two bytes is 255 pixels long
    look_at(kelu::decode_bmp({data, size}));
    return 0;
}
