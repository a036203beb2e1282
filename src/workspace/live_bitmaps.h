// SPDX-License-Identifier: MIT
// New live bitmaps of the current frame, made apart so that the old ones stay until all of them exist.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Frame, alpha and coverage of one size, cleared to 0. All three exist, or none is any good.
struct LiveBitmaps {
    Bitmap frame, alpha, coverage;

    LiveBitmaps(int w, int h) : frame(w, h), alpha(w, h), coverage(w, h) {}
    explicit operator bool() const { return frame && alpha && coverage; }
    /// They become the live bitmaps; the timers learn the frame's size, and the pan stays in its range.
    void install() &&;
};

} // namespace kelu
