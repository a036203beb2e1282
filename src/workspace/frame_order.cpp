// SPDX-License-Identifier: MIT
// Frames are renumbered in the tables of the program and on disk, there by one set of changes with the tables' own
// files: a run that fails or is cut short leaves the old order or the new one.
#include "workspace/frame_order.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/strings.h"
#include "imagefile/bmp.h"
#include "imagefile/tga.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/animation.h"
#include "runtime/store.h"
#include "workspace/change_set.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_store.h"
#include "workspace/frame_tables.h"
#include "workspace/notice.h"
#include "workspace/state.h"
#include "workspace/thumbnails.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int opaque_black = static_cast<int>(0xff000000U);

void tell(int first_text, int second_text)
{
    if (show_notice) show_notice(first_text, second_text);
}

/// Nothing has changed: reports it to the user, and why.
void report_unchanged()
{
    log_line("[ ERROR ] : The frames keep their order: %s", platform::failure_reason());
    report_unwritten(frame_file(store.current_frame), TEXT_FRAME_NOT_WRITTEN);
}

/// Lets the frames from `first` to the last of `count` have numbers that are `by` higher.
bool stage_renumbering(ChangeSet& changes, int first, int count, int by)
{
    for (int frame = first; frame < count; ++frame)
        if (!changes.stage_copy(frame_file(frame), frame_file(frame + by))) return false;
    return true;
}

bool write_new_frame(const std::string& name, int blank)
{
    if (blank == INSERT_CLONES) return write_live_frame(name);
    return write_tga(name, Bitmap(default_frame_w, default_frame_h, opaque_black));
}

/// The tables of the program, whose numbers go with those of the files.
bool stage_tables(ChangeSet& changes)
{
    return write_bmp(changes.stage(set_file("nal")), store.nail_sheet) &&
           write_state_file(changes.stage(set_file("spa")));
}

bool insert_files(int start, int count, int old_count, int blank)
{
    ChangeSet changes;
    if (!stage_renumbering(changes, start + 1, old_count, count)) return false;
    for (int frame = start + 1; frame <= start + count; ++frame)
        if (!write_new_frame(changes.stage(frame_file(frame)), blank)) return false;
    return stage_tables(changes) && changes.commit();
}

bool delete_files(int start, int count, int old_count)
{
    ChangeSet changes;
    if (!stage_renumbering(changes, start + count, old_count, -count)) return false;
    for (int frame = old_count - count; frame < old_count; ++frame)
        changes.remove(frame_file(frame));
    return stage_tables(changes) && changes.commit();
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
    store.frame_count = store.frame_count + count;
}

void delete_from_tables(int start, int count, int shown)
{
    for (int frame = start; frame < start + count; ++frame) {
        clear_view(frame);
        drop_cached_frame(frame);
    }
    for (int frame = start + count; frame < store.frame_count; ++frame)
        renumber_tables(frame, frame - count);
    store.frame_count = store.frame_count - count;
    store.current_frame = shown;
    take_view(shown);
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
    const int old_count = store.frame_count;
    const KeptTables before;
    insert_into_tables(start, count, blank);
    if (!insert_files(start, count, old_count, blank)) {
        before.put_back();
        return report_unchanged();
    }
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
    const KeptTables before;
    clear_view(frame);
    draw_nail(frame, merged);
    store.frame_count = frame + 1;
    ChangeSet changes;
    if (!visit.entered() || !write_tga(changes.stage(frame_file(frame)), merged) || !stage_tables(changes) ||
        !changes.commit()) {
        before.put_back();
        report_unchanged();
        return false;
    }
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
    const int old_count = store.frame_count;
    const KeptTables before;
    delete_from_tables(start, count, shown);
    if (!delete_files(start, count, old_count)) {
        before.put_back();
        return report_unchanged();
    }
    forget_protected_files();
    show_stored_frame(shown, std::move(merged));
    if (store.frame_count < 2) drop_onion_skin();
    animation.anim_count = build_anim_list();
}

} // namespace kelu
