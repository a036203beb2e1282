// SPDX-License-Identifier: MIT
// The window's slots lie above those of the menus and outlive them.
#include "loop/zoom_preview.h"

#include "gui/build.h"
#include "runtime/preferences.h"
#include "runtime/view.h"
#include <array>

namespace kelu {
namespace {

enum { SLOT_WINDOW = 115, SLOT_TITLE = 116, SLOT_PICTURE = 117, window_slots = 3 };

constexpr int size_step = 20; ///< pixels from one size of the option to the next

void open_window()
{
    const int size = preferences.zoom_preview_size * size_step;
    const int w = size + 48, h = size + 58, inner = size + 45;
    const MenuLayout place{
        .row = WINDOW_ZOOM_PREVIEW, .x = 10, .y = 20, .w = w, .h = h, .slot_count = window_slots, .slots = {}};
    const Origin at = window_origin(place);
    const std::array rows{
        SlotRow{SLOT_WINDOW, 0, 0, w, KIND_WINDOW}.high(h),
        SlotRow{SLOT_TITLE, 2, 2, inner, KIND_TITLE, TEXT_PREVIEW, ACT_DRAG, ACT_NONE, TIP_DRAG_MENU},
        SlotRow{SLOT_PICTURE, 2, 12, inner, KIND_ZOOM_PREVIEW}.high(inner),
    };
    build_slots(rows, at.x, at.y);
    gui.slot_count[SLOT_WINDOW] = window_slots;
    gui.label_row[SLOT_TITLE] = WINDOW_ZOOM_PREVIEW;
    gui.row_width[SLOT_PICTURE] = size + 40;
}

} // namespace

void update_zoom_preview()
{
    const bool wanted = view.zoom >= 2 && preferences.zoom_preview_on != 0 && menus.menu_id == MENU_DRAW;
    const bool open = gui.active[SLOT_WINDOW] != 0;
    if (wanted && !open) open_window();
    if (!wanted && open) {
        for (int i = 0; i < window_slots; ++i)
            gui_reset_slot(SLOT_WINDOW + i);
    }
}

} // namespace kelu
