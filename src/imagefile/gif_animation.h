// SPDX-License-Identifier: MIT
// Animated GIF files: "GIF89a" with several images, each laid over what shows.
//
// An image is a rectangle of the canvas with pixels that may be transparent. Its control block says how long it stays
// and what becomes of it then: it stays, its rectangle is cleared, or what was before comes back.
#pragma once

#include "imagefile/animation_file.h"

namespace kelu {

/// Writes a looping animation. Pixels of alpha below 128 are transparent, all others opaque. While all pictures
/// together have at most 256 colours they keep them and share a table; otherwise each has its own, by a value of
/// ColorReduction. Only what has changed of a picture is stored. Times are kept to a hundredth of a second over the
/// whole of the animation, and none is below two, for viewers take less for no time at all.
WriteResult write_gif_animation(const AnimationSource& source, int reduction, ByteSink sink, WorkDone done);

/// Size and number of the pictures of a GIF file; no pictures, with the reason in `picture_refusal`, when it isn't one.
AnimationHead gif_animation_head(std::span<const uint8_t> bytes);

/// Hands out each picture as a browser shows it. What no image has painted is transparent. False, with the reason in
/// `picture_refusal`, when the file is damaged; pictures may have been handed out before.
bool read_gif_animation(std::span<const uint8_t> bytes, TakePicture take);

} // namespace kelu
