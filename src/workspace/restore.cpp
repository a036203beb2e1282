// Splitting the restoration copy into new live bitmaps.
#include "workspace/restore.h"

#include "draw/undo.h"
#include "runtime/log.h"
#include "runtime/store.h"
#include "workspace/frame_cache.h"
#include "workspace/merged.h"
#include "workspace/thumbnails.h"

namespace kelu {

void restore_frame()
{
    const int w = store.restoration_bitmap.width();
    const int h = store.restoration_bitmap.height();
    Bitmap frame(w, h);
    Bitmap alpha(w, h);
    Bitmap coverage(w, h);
    if (!frame || !alpha || !coverage) {
        log_line("[ ERROR ] : Not enough memory to restore the frame");
        return;
    }
    push_undo(false);
    store.frame_bitmap = std::move(frame);
    store.alpha_bitmap = std::move(alpha);
    store.coverage_bitmap = std::move(coverage);
    alpha_strip(store.restoration_bitmap, store.frame_bitmap, store.alpha_bitmap);
    refresh_frame_cache();
    update_frame_nail(0);
}

} // namespace kelu
