// SPDX-License-Identifier: MIT
// The picture of the whole frame and the way from a place on it to the view.
#include "loop/quick_pan.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/build.h"
#include "gui/previews.h"
#include "loop/pass.h"
#include "runtime/hotkeys.h"
#include "runtime/input.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "runtime/view.h"

namespace kelu {
namespace {

constexpr int margin = 10; ///< of the slot on every side
constexpr int slot_w = logical_w - 2 * margin, slot_h = logical_h - 2 * margin;
constexpr int picture_w = slot_w, picture_h = slot_h - 2;

void tell_too_small()
{
    menus.status_message = TIP_TOO_SMALL_TO_PAN;
    center_view();
    wait_for_release(ACTION_QUICK_PAN);
    menus.status_message = TIP_NONE;
}

Bitmap picture_of_frame()
{
    Bitmap picture(picture_w, picture_h);
    const Bitmap& frame = store.frame_bitmap;
    if (!picture) return picture;
    if (frame.width() >= picture_w && frame.height() >= picture_h) {
        downscale_bitmap(frame, picture, 0, 0, picture_w, picture_h);
    } else {
        stretch_blit(frame, picture, 0, 0, frame.width(), frame.height(), 0, 0, picture_w, picture_h);
    }
    return picture;
}

/// One axis: pan that has the picture's pixel `at` in the middle of the view.
int pan_for(int frame_size, int picture_size, int at, float in_view)
{
    const float scale = static_cast<float>(frame_size) / static_cast<float>(picture_size);
    return static_cast<int>(scale * static_cast<float>(at) - in_view * 0.5F);
}

void move_view_to_pointer()
{
    const int level = view.zoom;
    view.pan_x = pan_for(store.frame_bitmap.width(), picture_w, pointer.mouse_x - margin, view.view_w[level]);
    view.pan_y = pan_for(store.frame_bitmap.height(), picture_h, pointer.mouse_y - margin, view.view_h[level]);
    clamp_pan();
    update_mouse_position();
}

} // namespace

void quick_pan()
{
    if (store.frame_bitmap.width() <= logical_w && store.frame_bitmap.height() <= logical_h) {
        tell_too_small();
        return;
    }
    const int slot = gui_find_free_slot(1);
    if (slot < 0) {
        log_line("[ ERROR ] : Cannot create help system hidden GUI object!");
        return;
    }
    quick_pan_picture.quickpan_bitmap = picture_of_frame();
    build_slot(SlotRow{slot, margin, margin, slot_w, KIND_QUICK_PAN}.high(slot_h).no_hover(), 0, 0);
    gui.reserved[slot] = 1;
    wait_for_release(ACTION_QUICK_PAN);
    if (!ending()) move_view_to_pointer();
    gui_reset_slot(slot);
    quick_pan_picture.quickpan_bitmap.reset();
}

} // namespace kelu
