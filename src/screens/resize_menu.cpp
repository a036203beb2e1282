// SPDX-License-Identifier: MIT
// Anchors, fields and the percentage, and what OKAY makes of them.
#include "screens/resize_menu.h"

#include "gui/build.h"
#include "gui/field.h"
#include "loop/pass.h"
#include "runtime/hotkeys.h"
#include "runtime/store.h"
#include "screens/quick_crop.h"
#include "workspace/frame_resize.h"
#include "workspace/frame_store.h"
#include <algorithm>
#include <array>
#include <string>

namespace kelu {
namespace {

enum {
    SLOT_ANCHOR_CAPTION = 2,
    SLOT_ANCHOR_0 = 3,
    SLOT_SCALE = 12,
    SLOT_CROP = 13,
    SLOT_PREVIEW = 14,
    SLOT_WIDTH = 15,
    SLOT_HEIGHT = 16,
    SLOT_WIDTH_CAPTION = 17,
    SLOT_HEIGHT_CAPTION = 18,
    SLOT_OKAY = 19,
    SLOT_CANCEL = 20,
    SLOT_PERCENT = 21,
    menu_slots = 22
};

constexpr int middle_anchor = 4;
constexpr int unchanged = 100; ///< per cent
constexpr int most_percent = 400;
constexpr int longest_side = 9999; ///< what the fields hold

constexpr std::array layout_rows{
    title_row(2, 2, 125, TEXT_RESIZE_FRAME),
    caption_row(SLOT_ANCHOR_CAPTION, 86, 12, 41, TEXT_ANCHOR),
    SlotRow{SLOT_SCALE, 86, 55, 41, KIND_BUTTON, TEXT_SCALE_TOO, ACT_FLIP, ACT_NONE, TIP_SCALE_TOO},
    SlotRow{SLOT_CROP, 86, 65, 41, KIND_PUSH_DARK, TEXT_QUICK_CROP, ACT_CLICK, ACT_NONE, TIP_QUICK_CROP},
    SlotRow{SLOT_PREVIEW, 2, 12, 83, KIND_SHEET_PREVIEW}.high(62),
    caption_row(SLOT_WIDTH_CAPTION, 2, 77, 45, TEXT_WIDTH),
    field_row(SLOT_WIDTH, 48, 77, 79, 4, 4),
    caption_row(SLOT_HEIGHT_CAPTION, 2, 87, 45, TEXT_HEIGHT),
    field_row(SLOT_HEIGHT, 48, 87, 79, 4, 4),
    slider_row(SLOT_PERCENT, 2, 97, 125, most_percent + 1, 5),
    push_row(SLOT_OKAY, 2, 112, 59, TEXT_OKAY),
    push_row(SLOT_CANCEL, 68, 112, 59, TEXT_CANCEL),
};
constexpr MenuLayout layout{.menu_id = MENU_RESIZE,
                            .row = WINDOW_RESIZE,
                            .x = 70,
                            .y = 80,
                            .w = 128,
                            .h = 122,
                            .slot_count = menu_slots,
                            .slots = layout_rows};

struct Size {
    int w, h;
    friend bool operator==(const Size&, const Size&) = default;
};

Size frame_size() { return {store.frame_bitmap.width(), store.frame_bitmap.height()}; }
Size wanted_size() { return {field_number(SLOT_WIDTH), field_number(SLOT_HEIGHT)}; }

/// Writes a number into a field; the caret stays where it is, as far as the text reaches.
void show_number(int slot, int number)
{
    const int caret = gui.field_caret[slot];
    set_field_text(slot, std::to_string(number).c_str());
    gui.field_caret[slot] = std::min(caret, int(gui.field_caret[slot]));
}

void show_size(Size size)
{
    show_number(SLOT_WIDTH, size.w);
    show_number(SLOT_HEIGHT, size.h);
}

void light_anchor(int lit)
{
    for (int anchor = 0; anchor < anchors; ++anchor)
        gui.kind[SLOT_ANCHOR_0 + anchor] = anchor == lit ? KIND_BUTTON_LIT : KIND_BUTTON;
}

void build_resize_menu()
{
    const Origin at = build_screen(layout);
    gui_logic.gui_key_focus = -1;
    for (int anchor = 0; anchor < anchors; ++anchor) {
        const int text = anchor == middle_anchor ? TEXT_LETTER_C : TEXT_PLUS;
        build_slot({SLOT_ANCHOR_0 + anchor, 86 + 14 * (anchor % 3), 22 + 10 * (anchor / 3), 13, KIND_BUTTON, text,
                    ACT_CLICK, ACT_NONE, TIP_ANCHOR},
                   at.x, at.y);
    }
    gui.scroll_value[SLOT_PERCENT] = unchanged;
    gui.scroll_show[SLOT_PERCENT] = &gui.scroll_value[SLOT_PERCENT];
    show_size(frame_size());
}

/// The screen's own state beside its slots.
struct ResizeScreen {
    int anchor = 0;
    int percent = unchanged; ///< the slider as it was read last
    Size frame = frame_size();
};

void show_placement(int anchor)
{
    const Size frame = frame_size(), wanted = wanted_size();
    const std::array record{anchor, frame.w, frame.h, wanted.w, wanted.h};
    std::ranges::copy(record, gui.items[SLOT_PREVIEW].begin());
}

void read_anchors(ResizeScreen& screen)
{
    for (int anchor = 0; anchor < anchors; ++anchor) {
        if (gui.event[SLOT_ANCHOR_0 + anchor].take() == 0) continue;
        screen.anchor = anchor;
        light_anchor(anchor);
    }
}

/// A moved slider gives both fields their numbers; a frame of another size starts at 100 per cent again.
void read_percent(ResizeScreen& screen)
{
    const int percent = gui.scroll_value[SLOT_PERCENT];
    const Size frame = frame_size();
    const auto scaled = [percent](int side) { return std::min(percent * side / unchanged, longest_side); };
    if (percent != screen.percent) {
        show_size({scaled(frame.w), scaled(frame.h)});
        screen.percent = percent;
    } else if (frame != screen.frame) {
        gui.scroll_value[SLOT_PERCENT] = screen.percent = unchanged;
    }
    screen.frame = frame;
}

/// True when OKAY, or Enter in the last field, has given the frame its new size.
bool resized(int anchor)
{
    const bool okay = gui.event[SLOT_OKAY].take() != 0;
    const bool entered = gui.event[SLOT_HEIGHT].take() != 0;
    const Size wanted = wanted_size();
    if ((!okay && !entered) || wanted.w < least_frame_side || wanted.h < least_frame_side) return false;
    return resize_frame(store.current_frame, wanted.w, wanted.h, anchor,
                        gui.kind[SLOT_SCALE] == KIND_BUTTON_LIT ? 1 : 0);
}

/// One pass; false when the screen is done.
bool run_pass(ResizeScreen& screen)
{
    show_placement(screen.anchor);
    if (!kelu::run_pass({.quick_pan = true, .right_click = RightClick::HIDES})) return false;
    read_anchors(screen);
    if (gui.event[SLOT_CROP].take() != 0) {
        gui_clear_window();
        quick_crop();
        return false;
    }
    if (gui.event[SLOT_WIDTH].take() != 0) gui_set_key_focus(SLOT_HEIGHT, true);
    if (gui.event[SLOT_CANCEL].take() != 0 || resized(screen.anchor)) return false;
    read_percent(screen);
    return true;
}

} // namespace

void resize_menu()
{
    ResizeScreen screen;
    build_resize_menu();
    light_anchor(screen.anchor);
    wait_for_release(ACTION_FRAME_RESIZE);
    while (run_pass(screen)) {}
    close_screen();
}

} // namespace kelu
