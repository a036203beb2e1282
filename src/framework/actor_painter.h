// SPDX-License-Identifier: MIT
// Drawing of an actor. The framework holds no cels, so an actor is a disc of its diameter in its colour.
#pragma once

#include "base/bitmap.h"
#include "framework/actor_shadow.h"

namespace kelu {

/// Bitmaps of the layer's own. Owner: the painter, on the main thread.
struct ActorPictures {
    Bitmap scratch_bitmap; ///< 320 x 200: what job 8 draws into; made at its first use
};
inline ActorPictures actor_pictures;

/// Draws an actor at its place, its height upwards: nothing of a hidden one, translucent and white ones as their mode
/// says. Clipped to the bitmap.
void draw_actor(BITMAP* target, const ActorShadow& actor);

} // namespace kelu
