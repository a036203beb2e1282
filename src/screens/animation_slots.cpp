// SPDX-License-Identifier: MIT
// Two strips of thumbnails: all frames, to be tagged by clicks, and the tagged ones with the delays between them.
#include "screens/animation_slots.h"

#include "gui/build.h"
#include "gui/scroll_bar.h"
#include "gui/text_colours.h"
#include "runtime/store.h"
#include "screens/speed_slider.h"
#include "workspace/frame_cache.h"
#include <algorithm>
#include <array>

namespace kelu {
namespace {

constexpr int nails = animation_nails, timed_nails = 3;
constexpr int cell_side = 42, nail_pitch = 43, timed_pitch = 129;
constexpr int delay_steps = max_anim_delay + 1;
constexpr int no_frame = -1;
constexpr int take_anew = -1; ///< in place of the position that the delay sliders stand for

constexpr SlotRow strip_row(int slot, int y) { return SlotRow{slot, 3, y, 304, KIND_COLOR_BOX}.high(58); }
constexpr SlotRow nail_row(int slot, int x, int y)
{
    return SlotRow{slot, x, y, cell_side, KIND_FRAME_NAIL}.high(cell_side).no_hover();
}

constexpr std::array layout_rows{
    title_row(2, 2, 306, TEXT_ANIMATION_SELECTION),
    strip_row(SLOT_STRIP, 12),
    SlotRow{SLOT_TIMING_CAPTION, 2, 75, 306, KIND_BUTTON, TEXT_ANIMATION_TIMING},
    strip_row(SLOT_TIMING, 85).with(ScrollBar{.steps = 1, .dy = 3, .horizontal = true}),
    SlotRow{SLOT_HINT, 3, 100, 304, KIND_CAPTION, TEXT_SELECT_MORE_FRAMES}.high(10).inked(SET_FOLDER),
    SlotRow{SLOT_LEFT_CAPTION, 48, 109, 85, KIND_BUTTON, TEXT_DELAY},
    slider_row(SLOT_DELAY_LEFT, 48, 119, 85, delay_steps, 1),
    SlotRow{SLOT_RIGHT_CAPTION, 177, 109, 85, KIND_BUTTON, TEXT_DELAY},
    slider_row(SLOT_DELAY_RIGHT, 177, 119, 85, delay_steps, 1),
    SlotRow{SLOT_SPEED_CAPTION, 3, 148, 105, KIND_BUTTON, TEXT_PLAYBACK_SPEED},
    speed_slider_row(SLOT_SPEED, 109, 148, 198),
    push_row(SLOT_ALL, 2, 160, 54, TEXT_ALL),
    push_row(SLOT_NONE, 67, 160, 54, TEXT_NONE_OF_ALL),
    push_row(SLOT_SAVE, 124, 160, 30, TEXT_SAVE, TIP_SAVE_ANIMATION),
    push_row(SLOT_LOAD, 156, 160, 30, TEXT_LOAD, TIP_LOAD_ANIMATION),
    push_row(SLOT_OKAY, 189, 160, 54, TEXT_OKAY),
    push_row(SLOT_CANCEL, 254, 160, 54, TEXT_CANCEL),
};
constexpr MenuLayout layout{.menu_id = MENU_ANIMATION,
                            .row = WINDOW_ANIMATION,
                            .x = 5,
                            .y = 147,
                            .w = 309,
                            .h = 170,
                            .slot_count = ANIMATION_SLOTS,
                            .slots = layout_rows};

/// The position that the delay sliders have taken their values for.
Cell<int, 0>& taken_position() { return gui.list_items[SLOT_TIMING][0]; }

int frame_at(int pos) { return pos >= 0 && pos < animation.anim_count ? int(animation.anim_list[pos]) : no_frame; }

void show_slot(int slot, bool shown)
{
    if (!shown) gui.scroll_bind_on[slot] = 0;
    gui.active[slot] = shown ? 1 : 0;
}

void show_nail(int slot, int frame)
{
    const bool exists = frame >= 0 && frame < store.frame_count;
    if (exists) {
        gui.colour[slot] = frame;
        gui.params[slot][0] = slot < SLOT_TIMED_0 ? int(tag_of(frame)) : 0;
    }
    show_slot(slot, exists);
}

void show_value(int slot) { gui.scroll_show[slot] = &gui.scroll_value[slot]; }

/// The bar of the timing strip: one step for each tagged frame. Returns the position that it is on.
int update_timing_bar(int count)
{
    if (gui.scroll_steps[SLOT_TIMING] != count && count > 0) {
        gui.scroll_steps[SLOT_TIMING] = count;
        gui.scroll_max[SLOT_TIMING] = count;
        forget_knob_tables(SLOT_TIMING, 1);
    }
    gui.scroll_value[SLOT_TIMING] = std::clamp(int(gui.scroll_value[SLOT_TIMING]), 0, std::max(count - 1, 0));
    gui.scroll_on[SLOT_TIMING] = count >= 2 ? 1 : 0;
    return gui.scroll_value[SLOT_TIMING];
}

/// Lets a slider write the delay of the frame at a position of the list; with `take` it takes the value first.
void bind_delay(int slot, int pos, bool take)
{
    const int frame = frame_at(pos);
    if (take && frame != no_frame) {
        Shared<int>& delay = animation.anim_delay[frame];
        gui.scroll_bind_on[slot] = 0;
        gui.scroll_bind[slot] = &delay;
        gui.scroll_value[slot] = std::clamp(int(delay), 0, max_anim_delay);
    }
    show_slot(slot, frame != no_frame);
    gui.scroll_bind_on[slot] = frame != no_frame ? 1 : 0;
}

} // namespace

void build_animation_menu()
{
    const Origin at = build_screen(layout);
    if (store.frame_count > nails) {
        const ScrollBar bar{.steps = store.frame_count - nails + 1, .dy = 3, .horizontal = true};
        build_slot(strip_row(SLOT_STRIP, 12).with(bar), at.x, at.y);
        show_value(SLOT_STRIP);
    }
    for (int i = 0; i < nails; ++i) {
        SlotRow nail = nail_row(SLOT_NAIL_0 + i, 5 + nail_pitch * i, 26);
        nail.left = ACT_CLICK;
        build_slot(nail, at.x, at.y);
    }
    for (int i = 0; i < timed_nails; ++i)
        build_slot(nail_row(SLOT_TIMED_0 + i, 5 + timed_pitch * i, 99), at.x, at.y);
    for (const int slot : {SLOT_TIMING, SLOT_DELAY_LEFT, SLOT_DELAY_RIGHT})
        show_value(slot);
    bind_speed_slider(SLOT_SPEED);
    taken_position() = take_anew;
}

void update_animation_menu()
{
    const int first = gui.scroll_value[SLOT_STRIP];
    for (int i = 0; i < nails; ++i)
        show_nail(SLOT_NAIL_0 + i, first + i);
    // The sliders must not write while the list behind them changes.
    gui.scroll_bind_on[SLOT_DELAY_LEFT] = 0;
    gui.scroll_bind_on[SLOT_DELAY_RIGHT] = 0;
    const int count = build_anim_list();
    animation.anim_count = count;
    const bool timing = count >= 2;
    const int pos = update_timing_bar(count);
    show_slot(SLOT_HINT, !timing);
    for (int i = 0; i < timed_nails; ++i)
        show_nail(SLOT_TIMED_0 + i, timing ? frame_at(pos - 1 + i) : no_frame);
    const bool take = taken_position() != pos;
    bind_delay(SLOT_DELAY_LEFT, timing ? pos - 1 : no_frame, take);
    bind_delay(SLOT_DELAY_RIGHT, timing ? pos : no_frame, take);
    show_slot(SLOT_LEFT_CAPTION, timing && pos >= 1);
    show_slot(SLOT_RIGHT_CAPTION, timing);
    taken_position() = pos;
}

void take_delays_anew() { taken_position() = take_anew; }

} // namespace kelu
