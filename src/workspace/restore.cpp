// SPDX-License-Identifier: MIT
// Splitting the restoration copy into new live bitmaps.
#include "workspace/restore.h"

#include "base/log.h"
#include "draw/undo.h"
#include "runtime/store.h"
#include "workspace/frame_cache.h"
#include "workspace/live_bitmaps.h"
#include "workspace/merged.h"
#include "workspace/thumbnails.h"

namespace kelu {

void restore_frame()
{
    LiveBitmaps fresh(store.restoration_bitmap.width(), store.restoration_bitmap.height());
    if (!fresh) {
        log_line("[ ERROR ] : Not enough memory to restore the frame");
        return;
    }
    const UndoableOperation step;
    std::move(fresh).install();
    alpha_strip(store.restoration_bitmap, store.frame_bitmap, store.alpha_bitmap);
    refresh_frame_cache();
    update_frame_nail(0);
}

} // namespace kelu
