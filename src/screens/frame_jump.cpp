// SPDX-License-Identifier: MIT
// Five rows of seven cells; the base frame is in the middle one.
#include "screens/frame_jump.h"

#include "base/run_state.h"
#include "gui/build.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "runtime/clock.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "screens/draw_menu.h"
#include "workspace/frame_store.h"
#include "workspace/merged.h"
#include "workspace/thumbnails.h"

namespace kelu {
namespace {

constexpr int cells = 35, cells_per_row = 7;
constexpr int middle_cell = 17; ///< of the base frame
constexpr int cell_side = 42, cell_pitch = 43;
constexpr int left = logical_w / 2 - 150, top = logical_h / 2 - 108;
constexpr int no_cell = -1;
constexpr int hold_counts = 100; ///< counts of 1/500 s from which a press isn't a tap any more

void reset_all_slots()
{
    for (int slot = 0; slot < gui_slots; ++slot)
        gui_reset_slot(slot);
}

int frame_in(int base, int cell) { return base - middle_cell + cell; }

/// Cells without a frame stay reset.
void build_frame_jump(int base)
{
    reset_all_slots();
    for (int cell = 0; cell < cells; ++cell) {
        const int frame = frame_in(base, cell);
        if (frame < 0 || frame >= store.frame_count) continue;
        build_slot(SlotRow{cell, cell_pitch * (cell % cells_per_row), cell_pitch * (cell / cells_per_row), cell_side,
                           KIND_FRAME_NAIL}
                       .high(cell_side),
                   left, top);
        gui.colour[cell] = frame;
        gui.reserved[cell] = 1;
    }
}

/// A cell stays chosen when the pointer leaves it.
int chosen_cell(int chosen)
{
    for (int cell = 0; cell < cells; ++cell)
        if (slot_live(cell) && slot_hovered(cell)) chosen = cell;
    return chosen;
}

/// The base after a turn of the wheel: a row up or down, as far as there are frames.
int turned_base(int base, int wheel)
{
    if (wheel > 0 && base >= cells_per_row) return base - cells_per_row;
    if (wheel < 0 && base + cells_per_row < store.frame_count) return base + cells_per_row;
    return base;
}

/// Shows the cells until the key comes up. Returns the frame that was chosen, which needn't exist; the current one when
/// none was, or when the program ends.
int choose_frame()
{
    int wheel_was = wheel_position();
    int base = store.current_frame;
    int chosen = no_cell;
    build_frame_jump(base);
    do {
        const int wheel = wheel_position();
        const int turned = turned_base(base, wheel - wheel_was);
        wheel_was = wheel;
        if (turned != base) build_frame_jump(base = turned);
        chosen = chosen_cell(chosen);
        gui.list_items[0][0] = chosen;
        if (!run_pass(passes::plain)) return store.current_frame;
        if (left_down() && chosen != no_cell) {
            wait_left_release();
            const int clicked = frame_in(base, chosen);
            if (clicked >= 0 && clicked < store.frame_count) build_frame_jump(base = clicked);
        }
    } while (hotkey_test(ACTION_FRAME_JUMP));
    return chosen == no_cell ? int(store.current_frame) : frame_in(base, chosen);
}

/// The onion skin follows to the frame before the new one.
void jump_to(int frame)
{
    if (frame == store.current_frame || !fetch_frame(store.current_frame, frame, 0)) return;
    const bool skin = view.onion_on != 0;
    drop_onion_skin();
    if (skin) show_onion_skin();
}

} // namespace

void frame_jump()
{
    clock_state.hold_counter = 0;
    if (frame_changed()) update_frame_nail(0);
    // Not the drawing menu's id, for the zoom preview would cover the cells.
    menus.menu_id = MENU_DIALOG;
    const int frame = choose_frame();
    const bool held = clock_state.hold_counter > hold_counts;
    reset_all_slots();
    build_draw_menu();
    if (held) jump_to(frame);
}

} // namespace kelu
