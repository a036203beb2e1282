// SPDX-License-Identifier: MIT
// The frames of an animation in memory.
#include "workspace/frame_cache.h"

#include "base/log.h"
#include "imagefile/tga.h"
#include "runtime/animation.h"
#include "runtime/store.h"
#include "workspace/folder.h"
#include "workspace/merged.h"
#include "workspace/running_work.h"
#include <algorithm>

namespace kelu {
namespace {

int& reference(int frame) { return frame_cache.frame_cache_ref[frame]; }
Bitmap& slot_bitmap(int slot) { return frame_cache.frame_cache[slot]; }
bool tagged(int frame) { return animation.anim_tag[frame] != 0; }

bool in_anim_list(int frame)
{
    return std::any_of(animation.anim_list.begin(), animation.anim_list.end(),
                       [frame](const Shared<int>& entry) { return entry == frame; });
}

int first_free_slot()
{
    const auto& slots = frame_cache.frame_cache;
    const auto found = std::find_if(slots.begin(), slots.end(), [](const Bitmap& bitmap) { return !bitmap; });
    return found == slots.end() ? -1 : static_cast<int>(found - slots.begin());
}

} // namespace

int build_anim_list()
{
    // The tick may read along: no entry that stays is emptied meanwhile.
    std::size_t count = 0;
    for (int frame = 0; frame < max_frames; ++frame)
        if (tagged(frame)) animation.anim_list[count++] = frame;
    for (std::size_t pos = count; pos < animation.anim_list.size(); ++pos)
        animation.anim_list[pos] = -1;
    return static_cast<int>(count);
}

BITMAP* cached_frame(int frame)
{
    const int slot = reference(frame);
    return slot == not_cached ? nullptr : slot_bitmap(slot).get();
}

void fill_frame_cache()
{
    const WorkspaceVisit visit({});
    settle_running_work();
    for (int frame = 0; frame < store.frame_count; ++frame) {
        if (!tagged(frame) || reference(frame) != not_cached) continue;
        const int slot = find_cache_slot();
        if (slot < 0) return;
        slot_bitmap(slot) = frame == store.current_frame ? color_picture().copy() : read_tga(frame_file(frame));
        if (slot_bitmap(slot)) reference(frame) = slot;
    }
}

void refresh_frame_cache()
{
    const int frame = store.current_frame;
    BITMAP* cached = cached_frame(frame);
    if (!cached) return;
    const Bitmap& picture = color_picture();
    const bool listed = in_anim_list(frame);
    if (listed && cached->w == picture.width() && cached->h == picture.height()) {
        blit(picture, cached, 0, 0, 0, 0, cached->w, cached->h);
        return;
    }
    if (Bitmap copy = listed ? picture.copy() : Bitmap()) {
        slot_bitmap(reference(frame)) = std::move(copy);
    } else {
        drop_cached_frame(frame);
    }
}

int find_cache_slot()
{
    for (int attempt = 0; attempt < 2; ++attempt) {
        const int slot = first_free_slot();
        if (slot >= 0) return slot;
        cache_maintenance();
    }
    const int slot = first_free_slot();
    if (slot < 0) log_line("[ ERROR ] : Cannot locate free cache slot, even after maintenance!");
    return slot;
}

void cache_maintenance()
{
    log_line("[ WARNING ] : Cache maintenance requested");
    std::array<bool, max_frames> used{};
    for (int frame = 0; frame < max_frames; ++frame) {
        if (reference(frame) == not_cached) continue;
        if (tagged(frame))
            used[reference(frame)] = true;
        else
            reference(frame) = not_cached;
    }
    for (std::size_t slot = 0; slot < used.size(); ++slot)
        if (!used[slot]) frame_cache.frame_cache[slot].reset();
}

void clear_frame_cache() { frame_cache = {}; }

void drop_cached_frame(int frame)
{
    if (reference(frame) == not_cached) return;
    slot_bitmap(reference(frame)).reset();
    reference(frame) = not_cached;
}

void shift_cache_entry(int from, int to)
{
    if (!cached_frame(from)) return;
    drop_cached_frame(to);
    reference(to) = std::exchange(reference(from), not_cached);
    animation.anim_tag[to] = animation.anim_tag[from];
    animation.anim_delay[to] = animation.anim_delay[from];
    animation.anim_tag[from] = 0;
    animation.anim_delay[from] = 0;
}

} // namespace kelu
