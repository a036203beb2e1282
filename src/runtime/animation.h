// The frames that make up the animation, and where its playback stands.
#pragma once

#include "runtime/view.h"
#include "runtime/words.h"
#include <array>
#include <cstdint>

namespace kelu {

/// Owner: the animation screens. Tags, delays and speed are also written by the frame store and the state file;
/// position and timer by the mouse tick.
struct Animation {
    std::array<Shared<uint8_t>, max_frames> anim_tag{}; ///< by frame: 1: the frame is part of the animation
    std::array<Shared<int>, max_frames> anim_delay{};   ///< by frame: delay, 0 to 100
    Shared<int> anim_speed = 1;                         ///< -10 to 10
    std::array<Shared<int>, max_frames> anim_list{};    ///< tagged frames in order, -1 behind the last; build_anim_list
    Shared<int> anim_count = 0;                         ///< tagged frames
    Shared<int> anim_state = 0;   ///< 0 stopped, 1 forward, 2 backward; negative: the same, paused
    Shared<int> anim_pos = 0;     ///< index into the list
    Shared<int> anim_timer = 0;   ///< counts towards the delay
    Shared<int> anim_subtick = 0; ///< counts ticks at low speeds
};
inline Animation animation;

} // namespace kelu
