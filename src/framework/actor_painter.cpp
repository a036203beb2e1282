// SPDX-License-Identifier: MIT
// Discs, line by line.
#include "framework/actor_painter.h"

#include "base/run_state.h"
#include "framework/fades.h"
#include "runtime/pixels.h"
#include <cmath>

namespace kelu {

void draw_actor(BITMAP* target, const ActorShadow& actor)
{
    if (actor.Type == ACTOR_FREE || actor.Mode == MODE_HIDDEN || actor.Diameter < 1) return;
    const int color = actor.Mode == MODE_WHITE ? fixed_colours.white : palette_color[actor.Color & 255];
    const int opacity = actor.Mode == MODE_TRANSLUCENT ? actor.actor_opacity + 1 : max_opacity + 1;
    const double radius = actor.Diameter / 2.0;
    const double middle_x = actor.actor_pos[0] + 0.5;
    const double middle_y = actor.actor_pos[1] - actor.actor_pos[2] + 0.5;
    const int first = std::max(static_cast<int>(std::floor(middle_y - radius)), 0);
    const int last = std::min(static_cast<int>(std::ceil(middle_y + radius)), target->h - 1);
    for (int y = first; y <= last; ++y) {
        const double rise = y + 0.5 - middle_y;
        const double reach = radius * radius - rise * rise;
        if (reach <= 0) continue;
        const int left = static_cast<int>(std::ceil(middle_x - std::sqrt(reach) - 0.5));
        const int right = static_cast<int>(std::floor(middle_x + std::sqrt(reach) - 0.5));
        blend_rect(target, left, y, right - left + 1, 1, color, opacity);
    }
}

} // namespace kelu
