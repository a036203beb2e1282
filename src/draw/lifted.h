// SPDX-License-Identifier: MIT
// A piece that a tool has lifted out of the frame and that floats: until it is anchored its place in the frame is a
// gap.
//
// The piece belongs to the operation. Whoever commits or leaves the frame meanwhile puts it back first, so that no file
// ever has the gap without the piece; what floats is a copy from then on. Main thread.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Owner: draw/lifted.
struct Lifted {
    Bitmap pixels;    ///< the frame where the gap is; empty: nothing is lifted
    int x = 0, y = 0; ///< frame pixels: its top left corner
};
inline Lifted lifted;

/// Keeps the frame's pixels from (x, y) on, before the gap is made. False when there is no memory for them.
bool lift_piece(int x, int y, int w, int h);
/// True until the piece has been anchored or put back.
bool piece_lifted();
/// The gap gets its pixels back, if there is one.
void put_back_piece();
/// The piece has been anchored: the gap stays.
void leave_gap();

} // namespace kelu
