// SPDX-License-Identifier: MIT
// The slider of the animation's speed, which two screens have.
#pragma once

#include "gui/build.h"
#include "runtime/animation.h"
#include <algorithm>

namespace kelu {

constexpr SlotRow speed_slider_row(int slot, int x, int y, int w)
{
    return SlotRow{slot, x, y, w, KIND_PANEL}.with(ScrollBar{.steps = max_anim_speed - min_anim_speed + 1,
                                                             .min = min_anim_speed,
                                                             .max = max_anim_speed + 1,
                                                             .horizontal = true});
}

/// Sets the slider to the speed and lets it write it from now on.
inline void bind_speed_slider(int slot)
{
    gui.scroll_value[slot] = std::clamp(int(animation.anim_speed), min_anim_speed, max_anim_speed);
    gui.scroll_show[slot] = &gui.scroll_value[slot];
    gui.scroll_bind[slot] = &animation.anim_speed;
    gui.scroll_bind_on[slot] = 1;
}

} // namespace kelu
