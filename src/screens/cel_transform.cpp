// SPDX-License-Identifier: MIT
// The buttons work on a scratch copy; the working copy of the cel shows it in the middle of the view.
#include "screens/cel_transform.h"

#include "loop/home_strip.h"
#include "loop/pass.h"
#include "runtime/measure.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "tools/cel_loop.h"
#include <utility>

namespace kelu {
namespace {

enum TransformSlot : int { SLOT_FLIP = 2, SLOT_OKAY = 5, SLOT_CANCEL = 6, SLOT_COUNT = 7 };

/// One button that changes the cel.
struct TransformRow {
    int slot, x, text, tooltip;
    void (*change)(BITMAP* shown, BITMAP* scratch);
};
constexpr TransformRow transforms[] = {
    {SLOT_FLIP, 2, TEXT_FLIP, TIP_CEL_FLIP, flip_cel},
    {SLOT_FLIP + 1, 44, TEXT_MIRROR, TIP_CEL_MIRROR, mirror_cel},
    {SLOT_FLIP + 2, 86, TEXT_TURN, TIP_CEL_QUARTER_TURN, turn_cel},
};

constexpr SlotRow change_row(const TransformRow& row)
{
    return push_row(row.slot, row.x, 12, 41, row.text, row.tooltip);
}

constexpr std::array transform_slots{
    title_row(2, 2, 125, TEXT_CEL_TRANSFORM),
    change_row(transforms[0]),
    change_row(transforms[1]),
    change_row(transforms[2]),
    push_row(SLOT_OKAY, 2, 25, 55, TEXT_OKAY),
    push_row(SLOT_CANCEL, 72, 25, 55, TEXT_CANCEL),
};
constexpr MenuLayout transform_screen{.menu_id = MENU_CEL_TRANSFORM,
                                      .row = WINDOW_CEL_TRANSFORM,
                                      .x = 70,
                                      .y = 80,
                                      .w = 128,
                                      .h = 35,
                                      .slot_count = SLOT_COUNT,
                                      .slots = transform_slots};

void center_cel()
{
    cel_work.cel_place.x = view.view_center_x - store.cel_bitmap.width() / 2;
    cel_work.cel_place.y = view.view_center_y - store.cel_bitmap.height() / 2;
}

/// Runs the loop; true after OKAY.
bool change_cel(BITMAP* scratch)
{
    for (center_cel(); run_pass(passes::cel); center_cel()) {
        for (const TransformRow& row : transforms) {
            if (gui.event[row.slot].take() != 0) row.change(store.cel_bitmap, scratch);
        }
        if (gui.event[SLOT_OKAY].take() != 0) return true;
        if (gui.event[SLOT_CANCEL].take() != 0) return false;
    }
    return false;
}

} // namespace

void cel_transform()
{
    Bitmap scratch = store.cel_source_bitmap.copy();
    if (!scratch) return;
    if (measure.measure_state == 0 && preferences.show_tool_distance != 0) measure = {};
    restore_cel_copy();
    build_screen(transform_screen);
    {
        const FloatingCel floating(CEL_PLAIN, {});
        cel_work.cel_place.show_outline = 1;
        if (change_cel(scratch)) {
            store.cel_source_bitmap = std::move(scratch);
            note_new_cel();
        }
        restore_cel_copy();
    }
    build_draw_menu();
}

} // namespace kelu
