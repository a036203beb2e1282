// SPDX-License-Identifier: MIT
// Splitting the restoration copy into new live bitmaps.
#include "workspace/restore.h"

#include "base/log.h"
#include "draw/undo.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "workspace/frame_cache.h"
#include "workspace/live_bitmaps.h"
#include "workspace/merged.h"
#include "workspace/thumbnails.h"

namespace kelu {
namespace {

/// The view of a frame before a picture was loaded over it. Main thread.
struct NotedView {
    int frame = -1; ///< -1: none is noted
    int zoom = 1, pan_x = 0, pan_y = 0;
};
NotedView noted;

void take_noted_view()
{
    view.zoom = noted.zoom;
    view.pan_x = noted.pan_x;
    view.pan_y = noted.pan_y;
    clamp_pan();
    update_mouse_position();
}

} // namespace

void note_view_before_load() { noted = {store.current_frame, view.zoom, view.pan_x, view.pan_y}; }

void restore_frame()
{
    const int w = store.frame_bitmap.width(), h = store.frame_bitmap.height();
    LiveBitmaps fresh(store.restoration_bitmap.width(), store.restoration_bitmap.height());
    if (!fresh) {
        log_line("[ ERROR ] : Not enough memory to restore the frame");
        return;
    }
    const UndoableOperation step;
    std::move(fresh).install();
    alpha_strip(store.restoration_bitmap, store.frame_bitmap, store.alpha_bitmap);
    const bool sized = store.frame_bitmap.width() != w || store.frame_bitmap.height() != h;
    if (sized && noted.frame == store.current_frame) take_noted_view();
    noted.frame = -1;
    refresh_frame_cache();
    update_frame_nail(0);
}

} // namespace kelu
