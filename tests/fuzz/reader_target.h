// SPDX-License-Identifier: MIT
// What the fuzz targets of picture readers share: Allegro without a display, and the run over one input.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"
#include "platform/host.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) { return kelu::platform::headless_host.start() ? 0 : 1; }

/// Reads every pixel, so that the sanitizers see what a reader has made too small.
inline void look_at(const kelu::Bitmap& picture)
{
    static volatile int sum = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            sum = sum ^ kelu::row(picture, y)[x];
    }
}
