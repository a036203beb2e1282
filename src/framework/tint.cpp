// SPDX-License-Identifier: MIT
// The screen tint's actor: found by its profession, or spawned.
#include "framework/tint.h"

#include "base/log.h"
#include "framework/behaviors.h"
#include "runtime/actors.h"
#include "runtime/pixels.h"

namespace kelu {
namespace {

/// Row of the tint that runs, or -1.
int find_tint_actor()
{
    for (int who = 1; who < max_actors; ++who) {
        if (actor_at(who).Profession == PROFESSION_TINT) return who;
    }
    return -1;
}

} // namespace

void FW_tint_screen(int red, int green, int blue, int target, int interval, int step)
{
    int who = find_tint_actor();
    const bool runs = who >= 0;
    if (!runs) {
        who = FW_spawn_blank_element(0, 0);
        if (who < 0) {
            log_line("[ ERROR ] : Couldn't assign object for screen tint");
            return;
        }
        FW_destroy_actor(who, "FW_tint_screen");
    }

    Actor& actor = actor_at(who);
    const std::array<int, 5> values{red, green, blue, target, step};
    for (std::size_t i = 0; i < values.size(); ++i)
        actor.behavior_params[0][i] = values[i];
    actor.behavior_interval[0] = interval;
    actor.behavior_autokill[0] = 1;
    if (runs) return;

    actor.Mode = MODE_HIDDEN;
    actor.Profession = PROFESSION_TINT;
    actor.Type = ACTOR_TINT;
    actor.behavior_counter[0] = 0;
    actor.BEHAVIOR[0] = BEHAVIOR_PALETTE_CONTROL; // last: the timer looks at it
}

void draw_screen_tint(BITMAP* picture)
{
    const int red = tint.tint_red;
    const int green = tint.tint_green;
    const int blue = tint.tint_blue;
    const int opacity = tint.tint_opacity;
    if (red == -1 || green == -1 || blue == -1 || opacity == 0) return;
    blend_rect(picture, 0, 0, picture->w, picture->h, pack_rgb(red & 255, green & 255, blue & 255), opacity);
}

} // namespace kelu
