// SPDX-License-Identifier: MIT
// Sliders, the preview of what is on the screen, and the two ways out.
#include "screens/tint_menu.h"

#include "base/log.h"
#include "colour/tint.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "runtime/color_settings.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "screens/frame_loan.h"
#include "tools/shape_panel.h"
#include <optional>
#include <utility>

namespace kelu {
namespace {

enum TintSlot : int {
    SLOT_IGNORE = 2,
    SLOT_H_CAPTION = 3,
    SLOT_L_CAPTION = 4,
    SLOT_S_CAPTION = 5,
    SLOT_H = 6,
    SLOT_L = 7,
    SLOT_S = 8,
    SLOT_OKAY = 9,
    SLOT_CANCEL = 10,
    SLOT_COUNT = 11
};

constexpr int most_shift = 128;
constexpr SlotRow shift_row(int slot, int y)
{
    return panel_slider_row(slot, 22, y, 106, -most_shift, most_shift, 2 * most_shift, 5);
}

constexpr std::array tint_slots{
    title_row(2, 2, 126, TEXT_TINT_CONTROL),
    SlotRow{SLOT_H_CAPTION, 2, 12, 19, KIND_BUTTON, TEXT_LETTER_H},
    SlotRow{SLOT_L_CAPTION, 2, 22, 19, KIND_BUTTON, TEXT_LETTER_L},
    SlotRow{SLOT_S_CAPTION, 2, 32, 19, KIND_BUTTON, TEXT_LETTER_S},
    shift_row(SLOT_H, 12),
    shift_row(SLOT_L, 22),
    shift_row(SLOT_S, 32),
    SlotRow{SLOT_IGNORE, 2, 44, 126, KIND_BUTTON, TEXT_IGNORE_MASK_COLOR, ACT_FLIP, ACT_NONE, TIP_IGNORE_MASK},
    push_row(SLOT_OKAY, 2, 56, 59, TEXT_OKAY),
    push_row(SLOT_CANCEL, 69, 56, 59, TEXT_CANCEL),
};
constexpr MenuLayout tint_screen{.menu_id = MENU_TINT,
                                 .row = WINDOW_TINT,
                                 .x = 70,
                                 .y = 80,
                                 .w = 129,
                                 .h = 66,
                                 .slot_count = SLOT_COUNT,
                                 .slots = tint_slots};

/// All that a preview depends on.
struct Shown {
    TintShift shift;
    bool ignore_mask;
    int zoom, pan_x, pan_y;
    friend bool operator==(const Shown&, const Shown&) = default;
};

Shown read_screen()
{
    return {{.hue = gui.scroll_value[SLOT_H],
             .lightness = gui.scroll_value[SLOT_L],
             .saturation = gui.scroll_value[SLOT_S]},
            gui.kind[SLOT_IGNORE] == KIND_BUTTON_LIT,
            view.zoom,
            view.pan_x,
            view.pan_y};
}

void open_screen()
{
    build_screen(tint_screen);
    set_panel_slider(SLOT_H, color_settings.tint_values[0]);
    set_panel_slider(SLOT_L, color_settings.tint_values[1]);
    set_panel_slider(SLOT_S, color_settings.tint_values[2]);
    gui.kind[SLOT_IGNORE] = color_settings.tint_ignore_mask != 0 ? KIND_BUTTON_LIT : KIND_BUTTON;
}

/// Runs the loop with the preview in the frame's place; true after OKAY.
bool choose_tint(Bitmap picture)
{
    const FrameLoan loan(std::move(picture));
    std::optional<Shown> last;
    const auto follow = [&] {
        const Shown now = read_screen();
        if (now != last) tint_frame(false, now.ignore_mask, lent_frame.kept_frame, store.frame_bitmap, now.shift);
        last = now;
    };
    for (follow(); run_pass(passes::menu); follow()) {
        if (gui.event[SLOT_OKAY].take() != 0) return true;
        if (gui.event[SLOT_CANCEL].take() != 0) return false;
    }
    return false;
}

} // namespace

void tint_menu()
{
    Bitmap picture = store.frame_bitmap.copy();
    if (!picture) {
        log_line("[ ERROR ] : No memory for a copy of the frame. It can't be tinted.");
        return;
    }
    open_screen();
    if (choose_tint(std::move(picture))) {
        const Shown chosen = read_screen();
        color_settings.tint_values = {chosen.shift.hue, chosen.shift.lightness, chosen.shift.saturation};
        color_settings.tint_ignore_mask = chosen.ignore_mask ? 1 : 0;
        tint_frame(true, chosen.ignore_mask, store.frame_bitmap, store.frame_bitmap, chosen.shift);
        touch_frame();
        settle_frame();
    }
    build_draw_menu();
}

} // namespace kelu
