// SPDX-License-Identifier: MIT
// Panels and their characters, in the narrow font.
#include "framework/bubble_painter.h"

#include "framework/actor_shadow.h"
#include "framework/bubble_layout.h"
#include "gui/text.h"
#include "runtime/pixels.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int margin = 5;   // from the panel's corner to the text, pixels
constexpr int distance = 4; // from the panel to its actor
constexpr int opaque = 255;

struct Corner {
    int x = 0, y = 0;
};

/// Top left corner of a bubble: centred above the actor, and moved into the picture where it would leave it.
Corner corner_of(const Bubble& bubble, const ActorShadow& actor, const BITMAP* picture)
{
    const int width = bubble.bubble_width;
    const int height = bubble.bubble_height;
    const int middle = actor.actor_pos[0];
    const int top = actor.actor_pos[1] - actor.actor_pos[2] - actor.Diameter / 2;
    const int x = std::min(middle - width / 2, picture->w - width);
    const int y = std::min(top - distance - height, picture->h - height);
    return {std::max(x, 0), std::max(y, 0)};
}

/// The characters in play, each at its own opacity.
void draw_characters(BITMAP* picture, const Bubble& bubble, Corner corner)
{
    std::array<BubblePlace, bubble_text_size> places;
    const int length = place_bubble_text(bubble, places);
    const int in_play = std::min(length, int(bubble.bubble_typed));
    for (int index = 0; index < in_play; ++index) {
        const int fade = bubble.bubble_fades[index];
        const char character[] = {static_cast<char>(bubble.bubble_text[index]), 0};
        set_text({.slot = FONT_NARROW,
                  .colour_set = bubble.bubble_colours[index],
                  .mode = fade < opaque ? 1 : 0,
                  .opacity = fade});
        draw_text(picture, corner.x + margin + places[index].column * bubble_character_w,
                  corner.y + margin + places[index].line * bubble_line_h, character);
    }
}

} // namespace

void draw_bubbles(BITMAP* picture)
{
    for (int index = 1; index < max_bubbles; ++index) {
        const Bubble& bubble = bubble_at(index);
        const int who = bubble.bubble_actor;
        if (!actor_exists(who)) continue;
        const Corner corner = corner_of(bubble, actor_shadow[who], picture);
        const int opened = std::min(int(bubble.bubble_open), int(bubble.bubble_height));
        const int state = bubble.bubble_state;
        blend_rect(picture, corner.x, corner.y, bubble.bubble_width, opened, palette_color[bubble.bubble_colour & 255],
                   opaque);
        if (state == BUBBLE_TYPING || state == BUBBLE_HOLDING) draw_characters(picture, bubble, corner);
    }
}

} // namespace kelu
