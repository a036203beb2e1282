// SPDX-License-Identifier: MIT
// Any bytes for the JPEG reader.
#include "imagefile/jpeg.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    look_at(kelu::decode_jpeg({data, size}));
    return 0;
}
