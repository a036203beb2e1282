// SPDX-License-Identifier: MIT
// Any bytes for the TGA reader. What the quick reader of frames takes, the other one takes too.
#include "imagefile/tga.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, 4 * 128 / 4, 1 << 20); // a packet of four bytes is 128 pixels long
    const kelu::Bitmap picture = kelu::decode_tga({data, size});
    look_at(picture);
    InputSource file({data, size});
    const kelu::Bitmap frame = kelu::read_plain_tga(file);
    look_at(frame);
    if (frame && (frame.width() != picture.width() || frame.height() != picture.height())) std::abort();
    return 0;
}
