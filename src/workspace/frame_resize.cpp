// SPDX-License-Identifier: MIT
// Each way in which the pictures of the old frame come into the new one works on frame and alpha alike.
#include "workspace/frame_resize.h"

#include "base/log.h"
#include "draw/undo.h"
#include "gui/menus.h"
#include "gui/tooltips.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "workspace/frame_store.h"
#include "workspace/live_bitmaps.h"
#include "workspace/merged.h"

namespace kelu {
namespace {

constexpr int opaque = 0xffffff; ///< of the alpha picture

/// New bitmaps for a frame; empty, with the reason reported, when they can't be had.
LiveBitmaps new_bitmaps(int w, int h)
{
    const bool too_small = w < least_frame_side || h < least_frame_side;
    LiveBitmaps fresh(too_small ? 0 : w, too_small ? 0 : h);
    if (fresh) return fresh;
    log_line("[ ERROR ] : The frame can't be resized! w = %d, h = %d", w, h);
    if (!too_small) flash_status_message(bitmap_size_valid(w, h) ? TIP_NOT_ENOUGH_MEMORY : TIP_PICTURE_TOO_LARGE);
    return fresh;
}

void shrink(BITMAP* from, BITMAP* to) { downscale_bitmap(from, to, 0, 0, to->w, to->h); }

void stretch(BITMAP* from, BITMAP* to) { stretch_blit(from, to, 0, 0, from->w, from->h, 0, 0, to->w, to->h); }

/// The part of the old pictures whose corner is (x, y), before a ground of colour `ground`, opaque.
void place(LiveBitmaps& fresh, int x, int y, int ground)
{
    clear_to_color(fresh.frame, store.alpha_edit_mode ? opaque : ground);
    clear_to_color(fresh.alpha, store.alpha_edit_mode ? ground : opaque);
    blit(store.frame_bitmap, fresh.frame, x, y, 0, 0, fresh.frame->w, fresh.frame->h);
    blit(store.alpha_bitmap, fresh.alpha, x, y, 0, 0, fresh.frame->w, fresh.frame->h);
}

/// Where one axis of the new frame begins in the old one; `third` is the anchor's column or row.
int anchored(int old_size, int new_size, int third) { return (old_size - new_size) * third / 2; }

} // namespace

bool resize_frame(int frame, int w, int h, int anchor, int scale)
{
    if (frame != store.current_frame || anchor < 0 || anchor >= anchors) {
        log_line("[ ERROR ] : Argument OOB in call to resize_frame! frame = %d, anchor = %d", frame, anchor);
        return false;
    }
    LiveBitmaps fresh = new_bitmaps(w, h);
    if (!fresh) return false;
    const int old_w = store.frame_bitmap.width(), old_h = store.frame_bitmap.height();
    if (scale != 0 && w < old_w && h < old_h) {
        shrink(store.frame_bitmap, fresh.frame);
        shrink(store.alpha_bitmap, fresh.alpha);
    } else {
        if (store.alpha_edit_mode) gray_normalize(store.frame_bitmap);
        if (scale != 0) {
            stretch(store.frame_bitmap, fresh.frame);
            stretch(store.alpha_bitmap, fresh.alpha);
        } else {
            place(fresh, anchored(old_w, w, anchor % 3), anchored(old_h, h, anchor / 3), 0);
        }
    }
    std::move(fresh).install();
    reset_undo_slots();
    return true;
}

bool crop_frame(int x, int y, int w, int h)
{
    LiveBitmaps fresh = new_bitmaps(w, h);
    if (!fresh) return false;
    place(fresh, x, y, toolbox.mask_color);
    std::move(fresh).install();
    settle_frame();
    return true;
}

} // namespace kelu
