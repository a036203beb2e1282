// SPDX-License-Identifier: MIT
// Any bytes for the PCX reader.
#include "imagefile/pcx.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    look_at(kelu::decode_pcx({data, size}));
    return 0;
}
