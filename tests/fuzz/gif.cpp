// SPDX-License-Identifier: MIT
// Any bytes for the GIF reader.
#include "imagefile/gif.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    look_at(kelu::decode_gif({data, size}));
    return 0;
}
