// SPDX-License-Identifier: MIT
// The frames that make up the animation, and where its playback is.
#pragma once

#include "base/words.h"
#include "runtime/view.h"
#include <array>
#include <cstdint>

namespace kelu {

/// Values of `anim_state`; the negative of a running one is the same, paused.
enum AnimState : int { ANIM_STOPPED = 0, ANIM_FORWARD = 1, ANIM_BACKWARD = 2 };

constexpr int max_anim_delay = 100;                      ///< longest delay of a frame
constexpr int min_anim_speed = -10, max_anim_speed = 10; ///< range of the speed

/// Owner: the animation screens. Tags, delays and speed are also written by the frame store and the state file;
/// position and timer by the mouse tick.
/// Writers: workspace, screens.
struct Animation {
    std::array<Shared<uint8_t>, max_frames> anim_tag{}; ///< by frame: 1: the frame is part of the animation
    std::array<Shared<int>, max_frames> anim_delay{};   ///< by frame: delay, 0 to 100
    Shared<int> anim_speed = 1;                         ///< -10 to 10
    std::array<Shared<int>, max_frames> anim_list{};    ///< tagged frames in order, -1 behind the last; build_anim_list
    Shared<int> anim_count = 0;                         ///< tagged frames
    Shared<int> anim_state = 0;                         ///< an AnimState, or the negative of one
    Shared<int> anim_pos = 0;                           ///< index into the list
    Shared<int> anim_timer = 0;                         ///< counts towards the delay
    Shared<int> anim_subtick = 0;                       ///< counts ticks at low speeds
};
inline Animation animation;

/// Timer callback, 120 Hz, by way of the mouse tick: counts towards the delay of the frame that shows, and steps. A
/// frame with delay d stays for d + 1 counts; both ends of the list lead to the other one. A speed of 1 to 10 counts
/// that much a tick, 0 and -1 count 1, and -n counts 1 in every n ticks.
void animation_tick();
/// Ticks that a frame of a delay stays at a speed.
int ticks_of_delay(int delay, int speed);
/// The delay, 0 to `max_anim_delay`, at which a frame stays nearest to so many ticks at a speed.
int delay_of_ticks(int ticks, int speed);
/// The fastest speed from 1 down at which a frame can stay so many ticks, or the slowest of all.
int speed_for_ticks(int ticks);
/// Stopped, at the first frame of the list.
void stop_animation();

} // namespace kelu
