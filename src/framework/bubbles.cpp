// SPDX-License-Identifier: MIT
// The life of speech bubbles: opening, typing, holding, closing, free.
#include "framework/bubbles.h"

#include "base/log.h"
#include "base/run_state.h"
#include "framework/bubble_layout.h"
#include "runtime/actors.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int panel_colour = 208;
constexpr int first_fade = 31; // opacity of a character that comes into play
constexpr int full_fade = 255;
constexpr int fade_step = 28;
constexpr int reveal = 80;
constexpr int open_step = 3; // pixels a tick

int free_bubble()
{
    for (int bubble = 1; bubble < max_bubbles; ++bubble) {
        if (bubble_at(bubble).bubble_actor == -1) return bubble;
    }
    return -1;
}

void open(Bubble& bubble)
{
    const int height = bubble.bubble_height;
    const int opened = bubble.bubble_open + open_step;
    const bool wide_open = opened > height + 7;
    bubble.bubble_open = wide_open ? height + 8 : opened;
    if (wide_open) bubble.bubble_state = BUBBLE_TYPING;
}

/// Brings the characters in play up, and the next one into play when the last of them can be seen.
void type(Bubble& bubble)
{
    bool changed = false;
    bool can_be_seen = false;
    const int typed = bubble.bubble_typed;
    int in_play = 0;
    for (; in_play < typed; ++in_play) {
        const auto i = static_cast<std::size_t>(in_play);
        if (i >= bubble.bubble_text.size() || bubble.bubble_text[i] == bubble_text_end) break;
        const int fade = bubble.bubble_fades[i];
        if (fade < full_fade) {
            bubble.bubble_fades[i] = std::min(fade + bubble.bubble_fade_step, full_fade);
            changed = true;
        }
        can_be_seen = bubble.bubble_fades[i] > bubble.bubble_reveal;
    }
    const bool more = in_play == typed && bubble.bubble_text[typed] != bubble_text_end;
    if (more && can_be_seen) {
        bubble.bubble_typed = std::min(typed + bubble.bubble_type_rate, bubble_text_size - 1);
        changed = true;
    }
    if (!changed) bubble.bubble_state = BUBBLE_HOLDING;
}

void hold(Bubble& bubble)
{
    const int life = bubble.bubble_life;
    if (life == -1) return;
    bubble.bubble_life = std::max(life - 1, 0);
    if (life <= 1) bubble.bubble_state = BUBBLE_CLOSING;
}

void close(int row, Bubble& bubble)
{
    bubble.bubble_open = bubble.bubble_open - open_step;
    if (bubble.bubble_open < 1) release_bubble(row);
}

} // namespace

int bubble_say(int who, int life, std::string_view text)
{
    if (!actor_exists(who)) {
        log_line("[ ERROR ] : WHO parameter OOB in call to bubble_say()! who = %d", who);
        return -1;
    }
    const int row = free_bubble();
    if (row < 0) {
        log_line("[ WARNING ] : Attempted to grab bubble, but none available!");
        return -1;
    }
    release_bubble(row);
    Bubble& bubble = bubble_at(row);
    lay_out_bubble(bubble, text);
    for (Shared16& fade : bubble.bubble_fades)
        fade = first_fade;
    bubble.bubble_state = BUBBLE_OPENING;
    bubble.bubble_colour = panel_colour;
    bubble.bubble_typed = 1;
    bubble.bubble_open = 0;
    bubble.bubble_fade_step = fade_step;
    bubble.bubble_reveal = reveal;
    bubble.bubble_type_rate = 1;
    bubble.bubble_life = life;
    bubble.bubble_actor = who; // last: the row is in use
    return row;
}

int close_bubbles(int row)
{
    int closed = 0;
    for (int candidate = 1; candidate < max_bubbles; ++candidate) {
        if (row != -1 && row != candidate) continue;
        Bubble& bubble = bubble_at(candidate);
        const int who = bubble.bubble_actor;
        if (!actor_exists(who) || actor_at(who).Type != ACTOR_SPEAKER) continue;
        bubble.bubble_state = BUBBLE_CLOSING;
        ++closed;
    }
    return closed;
}

bool bubbles_speak()
{
    return std::ranges::any_of(bubbles, [](const Bubble& bubble) { return bubble.bubble_actor != -1; });
}

void bubble_tick()
{
    if (run_state.timers_locked != 0) return;
    for (int row = 1; row < max_bubbles; ++row) {
        Bubble& bubble = bubble_at(row);
        if (bubble.bubble_actor == -1) continue;
        switch (bubble.bubble_state) {
        case BUBBLE_OPENING:
            open(bubble);
            break;
        case BUBBLE_TYPING:
            type(bubble);
            break;
        case BUBBLE_HOLDING:
            hold(bubble);
            break;
        default:
            close(row, bubble);
            break;
        }
    }
}

} // namespace kelu
