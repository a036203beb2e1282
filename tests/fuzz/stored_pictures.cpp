// SPDX-License-Identifier: MIT
// Any bytes as a frame's TGA and as a container's BMP. What is read can be looked at to its last pixel.
#include "imagefile/bmp.h"
#include "imagefile/tga.h"
#include "platform/host.h"
#include <cstdlib>

namespace {

/// Sides that fill memory with little data are left to the readers' own limits; here they would only slow the hunt.
constexpr int largest_side = 4096;

bool promises_too_much(const uint8_t* data, size_t size)
{
    const auto word = [data](size_t at) { return data[at] | data[at + 1] << 8; };
    return size >= 18 && (word(12) > largest_side || word(14) > largest_side);
}

long sum_of(const kelu::Bitmap& picture)
{
    long sum = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            sum += kelu::row(picture, y)[x];
    return sum;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    kelu::platform::headless_host.start();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    volatile long sum = sum_of(kelu::decode_bmp({data, size}));
    if (!promises_too_much(data, size)) sum = sum + sum_of(kelu::decode_tga({data, size}));
    return 0;
}
