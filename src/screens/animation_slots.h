// SPDX-License-Identifier: MIT
// The slots of the animation screen: the strip of all frames, the strip of the tagged ones, and the delays between
// them.
#pragma once

#include "runtime/animation.h"

namespace kelu {

enum AnimationSlot : int {
    SLOT_STRIP = 2,
    SLOT_TIMING = 3,
    SLOT_ALL = 4,
    SLOT_NONE = 5,
    SLOT_OKAY = 6,
    SLOT_CANCEL = 7,
    SLOT_TIMING_CAPTION = 8,
    SLOT_HINT = 9,
    SLOT_NAIL_0 = 10,
    SLOT_TIMED_0 = 18,
    SLOT_DELAY_LEFT = 21,
    SLOT_LEFT_CAPTION = 22,
    SLOT_DELAY_RIGHT = 23,
    SLOT_RIGHT_CAPTION = 24,
    SLOT_SPEED_CAPTION = 25,
    SLOT_SPEED = 26,
    SLOT_SAVE = 27,
    SLOT_LOAD = 28,
    ANIMATION_SLOTS = 29
};

constexpr int animation_nails = 7; ///< thumbnails that show of all frames, from SLOT_NAIL_0 on

/// Whether a frame, 0 to 99, is part of the animation.
inline Shared<uint8_t>& tag_of(int frame) { return animation.anim_tag[frame]; }

/// Opens the screen.
void build_animation_menu();
/// Refreshes thumbnails and sliders: what scrolled away, what was tagged. Makes the list of frames. Once a pass.
void update_animation_menu();
/// The list is about to change: the delay sliders take their values anew instead of writing them.
void take_delays_anew();

} // namespace kelu
