// SPDX-License-Identifier: MIT
// Shifts of hue, lightness and saturation of a whole picture.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// How far a tint shifts, each -128 to 128 on the scales of HLS.
struct TintShift {
    int hue = 0, lightness = 0, saturation = 0;
    friend bool operator==(const TintShift&, const TintShift&) = default;
};

/// The packed colour that a shift makes of another. A shift of hue by 128 goes the short way round; lightness and
/// saturation stop at their ends.
int tinted(int color, const TintShift& shift);

/// Writes the tinted pixels of `source` to the same places of `dest`, a bitmap of its size or itself, and copies them
/// where the shift is none. With `whole` all of them, else those that the screen may show: the screen's size from the
/// view's corner, moved up and left while zoomed, so that the zoom preview, which looks round the mouse, is tinted as
/// well. With `ignore_mask` pixels of exactly the mask colour stay.
void tint_frame(bool whole, bool ignore_mask, BITMAP* source, BITMAP* dest, const TintShift& shift);

} // namespace kelu
