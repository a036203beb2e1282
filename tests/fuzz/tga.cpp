// SPDX-License-Identifier: MIT
// Any bytes for the TGA reader.
#include "imagefile/tga.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    look_at(kelu::decode_tga({data, size}));
    return 0;
}
