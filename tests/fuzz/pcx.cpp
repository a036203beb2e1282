// SPDX-License-Identifier: MIT
// Any bytes for the PCX reader.
#include "imagefile/pcx.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, 4 * 8 * 32); // a run of two bytes in one plane
    look_at(kelu::decode_pcx({data, size}));
    return 0;
}
