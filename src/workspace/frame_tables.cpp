// SPDX-License-Identifier: MIT
// Renumbering in memory, and the way back.
#include "workspace/frame_tables.h"

#include "runtime/store.h"
#include "workspace/frame_cache.h"
#include "workspace/thumbnails.h"

namespace kelu {

void copy_view(int from, int to)
{
    view.frame_pan_x[to] = view.frame_pan_x[from];
    view.frame_pan_y[to] = view.frame_pan_y[from];
    view.frame_zoom[to] = view.frame_zoom[from];
}

void clear_view(int frame)
{
    view.frame_pan_x[frame] = view.frame_pan_y[frame] = 0;
    view.frame_zoom[frame] = 1;
}

void renumber_tables(int from, int to)
{
    copy_view(from, to);
    move_nail(from, to);
    shift_cache_entry(from, to);
}

KeptTables::KeptTables()
    : view_(view), animation_(animation), nails_(store.nail_sheet.copy()), frame_count_(store.frame_count),
      current_frame_(store.current_frame)
{}

void KeptTables::put_back() const
{
    view.frame_pan_x = view_.frame_pan_x;
    view.frame_pan_y = view_.frame_pan_y;
    view.frame_zoom = view_.frame_zoom;
    view.pan_x = view_.pan_x;
    view.pan_y = view_.pan_y;
    view.zoom = view_.zoom;
    animation.anim_tag = animation_.anim_tag;
    animation.anim_delay = animation_.anim_delay;
    if (nails_) blit(nails_, store.nail_sheet, 0, 0, 0, 0, nail_sheet_side, nail_sheet_side);
    store.frame_count = frame_count_;
    store.current_frame = current_frame_;
    clear_frame_cache();
}

} // namespace kelu
