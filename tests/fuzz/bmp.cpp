// SPDX-License-Identifier: MIT
// Any bytes for the BMP reader.
#include "imagefile/bmp.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    look_at(kelu::decode_bmp({data, size}));
    return 0;
}
