// SPDX-License-Identifier: MIT
// Files first, by one set of changes, then the tables of the program.
#include "workspace/frame_import.h"

#include "imagefile/tga.h"
#include "runtime/animation.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_store.h"
#include "workspace/frame_tables.h"
#include "workspace/thumbnails.h"
#include <algorithm>

namespace kelu {
namespace {

/// A picture that is too narrow or too low, on a ground of nothing.
Bitmap widened(BITMAP* picture)
{
    Bitmap wide(std::max(picture->w, least_frame_side), std::max(picture->h, least_frame_side));
    if (wide) blit(picture, wide, 0, 0, 0, 0, picture->w, picture->h);
    return wide;
}

void enter_frame(int frame, int delay)
{
    clear_view(frame);
    drop_cached_frame(frame);
    animation.anim_tag[frame] = 1;
    animation.anim_delay[frame] = delay;
}

} // namespace

FrameImport::FrameImport() : visit_({})
{
    if (visit_.entered()) changes_.emplace();
}

int FrameImport::room() { return max_frames - store.frame_count; }

bool FrameImport::add(BITMAP* picture)
{
    if (!changes_ || count_ >= room()) return false;
    Bitmap wide;
    if (picture->w < least_frame_side || picture->h < least_frame_side) {
        wide = widened(picture);
        if (!wide) return false;
        picture = wide;
    }
    const int frame = store.frame_count + count_;
    if (!write_tga(changes_->stage(frame_file(frame)), picture)) return false;
    draw_nail(frame, picture); // no frame has this cell as yet
    ++count_;
    return true;
}

bool FrameImport::commit(const std::vector<int>& delays)
{
    if (!changes_ || !changes_->commit()) return false;
    for (int i = 0; i < count_; ++i)
        enter_frame(store.frame_count + i, delays[i]);
    store.frame_count = store.frame_count + count_;
    save_nails();
    animation.anim_count = build_anim_list();
    return true;
}

} // namespace kelu
