// SPDX-License-Identifier: MIT
// The pictures on which our codecs are held against others.
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

/// Areas of 16 colours with outlines, as in drawn pictures.
inline Bitmap flat_art(int side)
{
    platform::headless_host.start();
    Bitmap picture(side, side, 0x203040);
    uint32_t seed = 1;
    const auto random = [&seed](int below) {
        seed = seed * 1664525 + 1013904223;
        return static_cast<int>((seed >> 8) % static_cast<uint32_t>(below));
    };
    for (int i = 0; i < 400; ++i) {
        const int x = random(side), y = random(side), r = 3 + random(side / 12), entry = random(16);
        const int color = pack_rgb(entry * 17, 255 - entry * 11, entry * 59 & 255);
        if (i % 2 == 0) {
            circlefill(picture, x, y, r, 0);
            circlefill(picture, x, y, r - 2, color);
        } else {
            rectfill(picture, x, y, x + r, y + r / 2, color);
        }
    }
    return picture;
}

} // namespace kelu
