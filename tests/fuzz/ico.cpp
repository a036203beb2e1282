// SPDX-License-Identifier: MIT
// Any bytes for the ICO reader.
#include "imagefile/ico.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, 4 * 8 * 1032); // a PNG of one bit in it
    look_at(kelu::decode_ico({data, size}));
    return 0;
}
