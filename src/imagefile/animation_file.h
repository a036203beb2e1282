// SPDX-License-Identifier: MIT
// Animations as files: what their writers are given, and what their readers hand out.
//
// Pictures are in merged form and go by one at a time, so that a long animation needs no more memory than a short one.
// Times are in 1/600 s: both a hundredth of a second, the unit of GIF, and a tick of the playback are whole numbers of
// them.
#pragma once

#include "base/bitmap.h"
#include "base/function_ref.h"
#include "base/reader.h"

namespace kelu {

constexpr int time_units = 600; ///< a second
constexpr int units_per_hundredth = 6;
constexpr int units_per_tick = 5; ///< of the playback, 120 a second

/// What is to be written. All pictures have the size of the canvas.
struct AnimationSource {
    int width = 0, height = 0;
    std::span<const int> durations; ///< one a picture, in time units
    /// Picture i; empty when it can't be had. Each may be asked for twice, in order.
    FunctionRef<Bitmap(int)> picture;
};

/// Takes the bytes of a file as they come; false: no more is wanted, for they could not be written.
using ByteSink = FunctionRef<bool(std::span<const uint8_t>)>;
/// Called after each piece of work, `done` of `all`; false: the user has called it off.
using WorkDone = FunctionRef<bool(int done, int all)>;

enum class WriteResult {
    WRITTEN,
    CALLED_OFF, ///< by WorkDone
    NO_PICTURE, ///< one could not be had
    NOT_TAKEN   ///< by the ByteSink
};

/// What an animation is like before its pictures are decoded.
struct AnimationHead {
    int width = 0, height = 0;
    int pictures = 0;
};

/// Takes a picture as it shows, and for how long, in time units; 0: the file doesn't say. False: no more is wanted.
using TakePicture = FunctionRef<bool(const Bitmap& picture, int duration)>;

/// Most pixels of all pictures of an animation together. A small file can ask for any number of them.
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
constexpr long max_animation_pixels = 1L << 20;
#else
constexpr long max_animation_pixels = 1L << 28;
#endif

} // namespace kelu
