// SPDX-License-Identifier: MIT
// Any bytes for the PNG reader.
#include "imagefile/png.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    look_at(kelu::decode_png({data, size}));
    return 0;
}
