// SPDX-License-Identifier: MIT
// Any bytes for the GIF reader.
#include "imagefile/gif.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, 4 * 2731); // see `lzw_most_a_byte`
    look_at(kelu::decode_gif({data, size}));
    return 0;
}
