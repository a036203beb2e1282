// SPDX-License-Identifier: MIT
// The position in the animation, moved by time and not by the frames of the screen.
#include "runtime/animation.h"

#include "platform/host.h"
#include <algorithm>
#include <cstdlib>

namespace kelu {
namespace {

constexpr int most_counts = 1000; ///< the timer starts anew above this

/// The frame at a place of the list, -1 for none.
int frame_at(int pos) { return pos >= 0 && pos < max_frames ? int(animation.anim_list[pos]) : -1; }

/// True when the delay of the frame at a place of the list has passed.
bool delay_over(int pos)
{
    const int frame = frame_at(pos);
    return frame >= 0 && frame < max_frames && animation.anim_delay[frame] < animation.anim_timer;
}

void step_to(int pos)
{
    animation.anim_timer = 0;
    animation.anim_pos = pos;
    platform::host->rouse(); // the display need not wait for the end of a frame's rest
}

/// Speeds from 1 on count that much a tick; lower ones count 1 in every so many ticks.
void count_time(int speed)
{
    if (speed >= 1) {
        animation.anim_timer = animation.anim_timer + speed;
        return;
    }
    const int ticks = animation.anim_subtick + 1;
    const bool counts = std::abs(speed) <= ticks;
    animation.anim_subtick = counts ? 0 : ticks;
    if (counts) animation.anim_timer = animation.anim_timer + 1;
}

} // namespace

void animation_tick()
{
    const int state = animation.anim_state;
    if (state == ANIM_STOPPED) return;
    if (state > 0) count_time(animation.anim_speed);
    const int pos = animation.anim_pos;
    if (state == ANIM_FORWARD && delay_over(pos)) step_to(pos + 1);
    if (state == ANIM_BACKWARD) {
        const int before = pos > 0 ? pos - 1 : animation.anim_count - 1;
        if (delay_over(before)) step_to(before);
    }
    if (frame_at(animation.anim_pos) < 0) animation.anim_pos = 0;
    if (animation.anim_timer > most_counts) animation.anim_timer = 0;
}

int ticks_of_delay(int delay, int speed)
{
    if (speed >= 1) return delay / speed + 1;
    return (delay + 1) * std::max(1, std::abs(speed));
}

int delay_of_ticks(int ticks, int speed)
{
    const int pace = std::max(1, std::abs(speed));
    const int delay = speed >= 1 ? (ticks - 1) * speed : (ticks + pace / 2) / pace - 1;
    return std::clamp(delay, 0, max_anim_delay);
}

int speed_for_ticks(int ticks)
{
    constexpr int most = max_anim_delay + 1;
    if (ticks <= most) return 1;
    return std::max(min_anim_speed, -((ticks + most - 1) / most));
}

void stop_animation()
{
    animation.anim_state = ANIM_STOPPED;
    animation.anim_pos = 0;
    animation.anim_timer = 0;
    animation.anim_subtick = 0;
}

} // namespace kelu
