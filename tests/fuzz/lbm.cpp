// SPDX-License-Identifier: MIT
// Any bytes for the LBM reader.
#include "imagefile/lbm.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, 4 * 8 * 64); // a run of two bytes in one plane
    look_at(kelu::decode_lbm({data, size}));
    return 0;
}
