// SPDX-License-Identifier: MIT
// Any bytes for the JPEG reader.
#include "imagefile/jpeg.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, 10 * 2048); // coefficients and pixels of a progressive one
    look_at(kelu::decode_jpeg({data, size}));
    return 0;
}
