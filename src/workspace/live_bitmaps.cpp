// SPDX-License-Identifier: MIT
// One exchange for everything that gives the frame a new size.
#include "workspace/live_bitmaps.h"

#include "draw/touched.h"
#include "draw/unsaved.h"
#include "runtime/store.h"
#include "runtime/view.h"

namespace kelu {

void LiveBitmaps::install() &&
{
    store.frame_bitmap = std::move(frame);
    store.alpha_bitmap = std::move(alpha);
    store.coverage_bitmap = std::move(coverage);
    touch_frame();
    {
        const std::lock_guard lock(unsaved.mutex);
        unsaved.clear();
        unsaved.whole = true;
    }
    note_frame_size();
    clamp_pan();
}

} // namespace kelu
