// Frames are renumbered on disk first, all of them by one set of changes, then in the tables of the program: a run that
// fails or is cut short leaves the old order or the new one.
#include "workspace/frame_order.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/strings.h"
#include "gui/tooltips.h"
#include "imagefile/tga.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/animation.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "workspace/change_set.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_store.h"
#include "workspace/merged.h"
#include "workspace/notice.h"
#include "workspace/thumbnails.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int opaque_black = static_cast<int>(0xff000000U);

void tell(int first_text, int second_text)
{
    if (show_notice) show_notice(first_text, second_text);
}

void copy_view(int from, int to)
{
    const auto source = static_cast<std::size_t>(from), target = static_cast<std::size_t>(to);
    view.frame_pan_x[target] = view.frame_pan_x[source];
    view.frame_pan_y[target] = view.frame_pan_y[source];
    view.frame_zoom[target] = view.frame_zoom[source];
}

/// What belongs to a frame in the tables of the program follows its file.
void renumber_tables(int from, int to)
{
    copy_view(from, to);
    move_nail(from, to);
    shift_cache_entry(from, to);
}

/// Nothing has changed: tells the user so, and why.
void report_unchanged()
{
    run_state.workspace_damaged = 1;
    log_line("[ ERROR ] : The frames keep their order: %s", platform::failure_reason());
    report_unwritten(frame_file(store.current_frame), TIP_FRAME_NOT_WRITTEN);
}

/// Lets the frames behind `start` have numbers that are `by` higher.
bool stage_renumbering(ChangeSet& changes, int start, int by)
{
    for (int frame = start + 1; frame < store.frame_count; ++frame)
        if (!changes.stage_copy(frame_file(frame), frame_file(frame + by))) return false;
    return true;
}

bool write_new_frame(const std::string& name, int blank)
{
    if (blank == INSERT_CLONES)
        return write_tga(name, store.frame_bitmap.width(), store.frame_bitmap.height(), merged_rows());
    return write_tga(name, Bitmap(default_frame_w, default_frame_h, opaque_black));
}

bool insert_files(int start, int count, int blank)
{
    ChangeSet changes;
    if (!stage_renumbering(changes, start, count)) return false;
    for (int frame = start + 1; frame <= start + count; ++frame)
        if (!write_new_frame(changes.stage(frame_file(frame)), blank)) return false;
    return changes.commit();
}

bool delete_files(int start, int count)
{
    ChangeSet changes;
    if (!stage_renumbering(changes, start + count - 1, -count)) return false;
    for (int frame = store.frame_count - count; frame < store.frame_count; ++frame)
        changes.remove(frame_file(frame));
    return changes.commit();
}

void insert_into_tables(int start, int count, int blank)
{
    for (int frame = store.frame_count - 1; frame > start; --frame)
        renumber_tables(frame, frame + count);
    for (int frame = start + 1; frame <= start + count; ++frame) {
        if (blank == INSERT_CLONES) copy_view(start, frame);
        if (blank == INSERT_CLONES)
            draw_nail(frame);
        else
            clear_nail(frame);
    }
    copy_view(start, start + 1);
}

void delete_from_tables(int start, int count)
{
    for (int frame = start; frame < start + count; ++frame) {
        const auto slot = static_cast<std::size_t>(frame);
        view.frame_pan_x[slot] = view.frame_pan_y[slot] = 0;
        view.frame_zoom[slot] = 1;
        drop_cached_frame(frame);
    }
    for (int frame = start + count; frame < store.frame_count; ++frame)
        renumber_tables(frame, frame - count);
}

/// The number of the frame that is shown once `count` frames from `start` on have gone.
int shown_after_delete(int start, int count)
{
    const int left = store.frame_count - count;
    if (store.current_frame < left) return std::min(start, left - 1);
    return count < left && start >= count ? start - count : 0;
}

} // namespace

void insert_frames(int start, int count, int blank)
{
    if (store.frame_count > max_frames - 1) return tell(TEXT_CANT_ADD_FRAMES, TEXT_MAXIMUM_FRAMES);
    if (start < 0 || start > max_frames - 1) {
        log_line("[ ERROR ] : Starting point OOB in call to insert_frames! start = %d", start);
        return;
    }
    if (count <= 0 || start + count >= max_frames || store.frame_count + count > max_frames) {
        log_line("[ ERROR ] : Frame count OOB in call to insert_frames! num_frames = %d", count);
        return;
    }
    const WorkspaceVisit visit(run_state.program_dir);
    if (!visit.entered()) {
        log_line("[ ERROR ] : WORKSPACE directory unavailable. Aborting insert operation!");
        return;
    }
    if (!insert_files(start, count, blank)) return report_unchanged();
    insert_into_tables(start, count, blank);
    save_nails();
    store.frame_count = store.frame_count + count;
    animation.anim_count = build_anim_list();
}

bool append_frame(const Bitmap& merged)
{
    if (store.frame_count > max_frames - 1) {
        tell(TEXT_CANT_ADD_FRAMES, TEXT_MAXIMUM_FRAMES);
        return false;
    }
    const WorkspaceVisit visit(run_state.program_dir);
    const int frame = store.frame_count;
    ChangeSet changes;
    if (!visit.entered() || !write_tga(changes.stage(frame_file(frame)), merged) || !changes.commit()) {
        report_unchanged();
        return false;
    }
    const auto slot = static_cast<std::size_t>(frame);
    view.frame_pan_x[slot] = view.frame_pan_y[slot] = 0;
    view.frame_zoom[slot] = 1;
    draw_nail(frame, merged);
    save_nails();
    store.frame_count = frame + 1;
    animation.anim_count = build_anim_list();
    return true;
}

void delete_frames(int start, int count)
{
    if (store.frame_count == 1) return tell(TEXT_FRAME_CANT_BE_DELETED, TEXT_NONE);
    if (start < 0 || start > max_frames - 1) {
        log_line("[ ERROR ] : Starting point OOB in call to delete_frames! start = %d", start);
        return;
    }
    if (count <= 0 || start + count > store.frame_count || count >= store.frame_count) {
        log_line("[ ERROR ] : Frame count OOB in call to delete_frames! num_frames = %d", count);
        return;
    }
    const WorkspaceVisit visit(run_state.program_dir);
    if (!visit.entered()) {
        log_line("[ ERROR ] : WORKSPACE directory unavailable. Aborting delete operation!");
        return;
    }
    const int shown = shown_after_delete(start, count);
    const int shown_before = shown < start ? shown : shown + count;
    Bitmap merged = read_stored_frame(frame_file(shown_before));
    if (!merged && frame_out_of_reach(shown_before)) return;
    if (!delete_files(start, count)) return report_unchanged();
    delete_from_tables(start, count);
    store.frame_count = store.frame_count - count;
    show_stored_frame(shown, std::move(merged));
    if (store.frame_count < 2) drop_onion_skin();
    animation.anim_count = build_anim_list();
}

} // namespace kelu
