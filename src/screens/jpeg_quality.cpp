// SPDX-License-Identifier: MIT
// Slider, VIEW, OKAY, CANCEL; the picture goes through the codec in memory.
#include "screens/jpeg_quality.h"

#include "gui/build.h"
#include "imagefile/jpeg.h"
#include "loop/pass.h"
#include "runtime/browser_state.h"
#include "runtime/store.h"
#include "screens/frame_loan.h"
#include "tools/shape_panel.h"
#include <optional>

namespace kelu {
namespace {

/// Above the slots of the window that asked, which is hidden but keeps them, and below those of the zoom preview.
enum QualitySlot : int { SLOT_WINDOW = 100, SLOT_TITLE, SLOT_QUALITY, SLOT_OKAY, SLOT_VIEW, SLOT_CANCEL, SLOT_END };

constexpr int most_quality = 100;
constexpr int window_w = 142, window_h = 36;

constexpr SlotRow quality_title()
{
    SlotRow row = title_row(2, 2, window_w - 3, TEXT_JPEG_QUALITY);
    row.slot = SLOT_TITLE;
    return row;
}

constexpr std::array quality_slots{
    SlotRow{SLOT_WINDOW, 0, 0, window_w, KIND_WINDOW}.high(window_h).filled(FILL_BACKGROUND),
    quality_title(),
    panel_slider_row(SLOT_QUALITY, 2, 13, window_w - 3, 0, most_quality, most_quality + 1),
    push_row(SLOT_OKAY, 2, 25, 44, TEXT_OKAY),
    push_row(SLOT_VIEW, 49, 25, 43, TEXT_VIEW),
    push_row(SLOT_CANCEL, 95, 25, 45, TEXT_CANCEL),
};
constexpr MenuLayout quality_window{.menu_id = MENU_JPEG_QUALITY,
                                    .row = WINDOW_JPEG_QUALITY,
                                    .x = 320 - 157,
                                    .y = 240 - 51,
                                    .w = window_w,
                                    .h = window_h,
                                    .slots = quality_slots};

/// Shows the frame as the file would hold it, and what showed before when the codec can't.
void show_as_jpeg(BITMAP* untouched, int quality)
{
    Bytes bytes;
    if (!encode_jpeg(untouched, quality, bytes)) return;
    const Bitmap coded = decode_jpeg(bytes);
    if (coded) blit(coded, store.frame_bitmap, 0, 0, 0, 0, coded.width(), coded.height());
}

/// Runs the dialog to OKAY, true, or CANCEL.
bool choose_quality(BITMAP* untouched)
{
    gui.event[SLOT_VIEW] = 1; // the first view comes by itself
    const auto view = [untouched] {
        if (gui.event[SLOT_VIEW].take() != 0 && untouched) show_as_jpeg(untouched, gui.scroll_value[SLOT_QUALITY]);
    };
    for (view(); run_pass(passes::menu); view()) {
        if (gui.event[SLOT_OKAY].take() != 0) return true;
        if (gui.event[SLOT_CANCEL].take() != 0) return false;
    }
    return false;
}

} // namespace

int jpeg_quality_dialog()
{
    const int menu_before = menus.menu_id;
    const int message_before = menus.status_message;
    menus.menu_id = MENU_JPEG_QUALITY;
    menus.status_message = TIP_JPEG_QUALITY;
    const Origin origin = window_origin(quality_window);
    build_slots(quality_slots, origin.x, origin.y);
    gui.slot_count[SLOT_WINDOW] = SLOT_END - SLOT_WINDOW;
    set_panel_slider(SLOT_QUALITY, browser_state.jpg_quality);

    std::optional<FrameLoan> loan;
    if (Bitmap shown = store.frame_bitmap.copy()) loan.emplace(std::move(shown));
    const bool accepted = choose_quality(lent_frame.kept_frame);
    loan.reset();
    const int quality = gui.scroll_value[SLOT_QUALITY];
    if (accepted) browser_state.jpg_quality = quality;
    for (int slot = SLOT_WINDOW; slot < SLOT_END; ++slot)
        gui_reset_slot(slot);
    menus.status_message = message_before;
    menus.menu_id = menu_before;
    return accepted ? quality : -1;
}

} // namespace kelu
