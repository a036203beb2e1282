// SPDX-License-Identifier: MIT
// PNG animations: a PNG of the first picture, and the others in chunks that other readers pass over.
//
//   acTL   pictures, runs (0: without an end)                        before the first IDAT
//   fcTL   number, rectangle, time, what becomes of it, how it is laid over what shows; before each picture's data
//   fdAT   number, data as in an IDAT                                all pictures but the first
//
// The numbers of fcTL and fdAT chunks count up through the file. All of it runs on the main thread, in memory.
#pragma once

#include "imagefile/animation_file.h"

namespace kelu {

/// Writes an animation that runs without an end, in full colour with alpha. Only the rectangle that has changed of a
/// picture is stored. A picture that zlib has no memory for counts as not had.
WriteResult write_apng(const AnimationSource& source, ByteSink sink, WorkDone done);

/// Size and number of the pictures of a PNG file, one for a plain one; no pictures, with the reason in
/// `picture_refusal`, when it isn't one.
AnimationHead apng_head(std::span<const uint8_t> bytes);

/// Hands out each picture as a browser shows it; a plain PNG is one picture that says no time. Palettes keep all 8 bits
/// of a channel, and tRNS counts. False, with the reason in `picture_refusal`, when the file is damaged; pictures may
/// have been handed out before.
bool read_apng(std::span<const uint8_t> bytes, TakePicture take);

} // namespace kelu
