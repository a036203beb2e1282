// SPDX-License-Identifier: MIT
// How the pictures of an animated GIF get on the canvas one after the other: what is painted, and what becomes of it.
//
// A canvas pixel is 0 where it is transparent, else opaque: 0xff000000 and the colour. A GIF can paint colours and
// leave pixels alone, but not make one transparent again; only what becomes of an image behind its time can.
#pragma once

#include "imagefile/picture_area.h"

namespace kelu {

/// What becomes of an image when its time is over; the numbers are the file's.
enum GifDisposal : int { GIF_KEEP = 1, GIF_CLEAR = 2, GIF_BRING_BACK = 3 };

struct GifStep {
    PictureArea area; ///< what is painted, at least one pixel
    int disposal = GIF_KEEP;
};

/// Turns a picture in merged form into a canvas: alpha below 128 is transparent.
void make_gif_canvas(BITMAP* picture);

/// The step from the canvas `shown` to `target`, chosen so that `next` can follow. `next` null: `target` is the last
/// picture. `first`: nothing shows yet, and the whole canvas is painted for readers of one picture.
GifStep plan_gif_step(BITMAP* shown, BITMAP* target, BITMAP* next, bool first);

/// Brings `shown` to what the picture behind `target` is laid over. Both stay usable; `target` may change.
void end_gif_step(Bitmap& shown, Bitmap& target, const GifStep& step);

} // namespace kelu
