// SPDX-License-Identifier: MIT
// The picture on which our codecs are held against others.
#pragma once

#include "base/bitmap.h"
#include "platform/host.h"
#include "runtime/pixels.h"

namespace kelu {

constexpr int ramps_side = 1024;

/// Areas of one colour and ramps.
inline Bitmap ramps()
{
    platform::headless_host.start();
    Bitmap picture(ramps_side, ramps_side);
    for (int y = 0; y < ramps_side; ++y) {
        for (int x = 0; x < ramps_side; ++x)
            row(picture, y)[x] = (x / 64 + y / 64) % 3 == 0 ? 0x406080 : pack_rgb(x >> 2, y >> 2, (x + y) / 16);
    }
    return picture;
}

} // namespace kelu
