// SPDX-License-Identifier: MIT
// Putting a cel back: paste, paste below, and pictures that come in as a one-off cel.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Floats the cel from its origin until it is anchored, and pastes it through the current ink. With `remask` the
/// working copy is made anew and the mask colour left out; with `undoable` the anchoring is an operation of its own,
/// else a part of the one that has lifted the piece, unless another frame has been fetched since. False when the
/// program was asked to exit before that: the frame is as it was.
bool cel_paste(bool remask, bool undoable);

/// The same, but the cel shows only where the frame has the mask colour, and its origin stays unless it is dragged.
void cel_below();

/// Where the offscreen window brings the floating cel: with `bring` into the middle of the view, else the view to it.
void cel_jump(bool bring);

/// Pastes a picture as the cel of one operation, from the frame's corner; the user's own cel comes back.
void paste_picture(Bitmap picture);

} // namespace kelu
