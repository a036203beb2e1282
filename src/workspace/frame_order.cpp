// Frames are renumbered by renaming their files one at a time, from the side where the room is, so that at every
// moment each frame has a file of its own. A run that is cut short leaves a gap, which the next start closes.
#include "workspace/frame_order.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/strings.h"
#include "gui/tooltips.h"
#include "imagefile/tga.h"
#include "platform/files.h"
#include "runtime/animation.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_store.h"
#include "workspace/merged.h"
#include "workspace/notice.h"
#include "workspace/thumbnails.h"

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

/// Gives a stored frame another number, with all that belongs to it. False: the number is taken, or the file could
/// not be renamed.
bool renumber_frame(int from, int to)
{
    if (!platform::file_exists(frame_file(from))) return true;
    if (platform::file_exists(frame_file(to))) return false;
    if (!platform::rename_file(frame_file(from), frame_file(to))) {
        report_unwritten(frame_file(to), TIP_FRAME_NOT_WRITTEN);
        return false;
    }
    copy_view(from, to);
    move_nail(from, to);
    shift_cache_entry(from, to);
    return true;
}

bool open_gap(int start, int count)
{
    for (int i = max_frames - 1 - count; i > start; --i)
        if (!renumber_frame(i, i + count)) return false;
    return true;
}

/// Also takes back what a failed `open_gap` has moved: frames that still stand where they were keep their numbers,
/// since those below them are taken.
void close_gap(int start, int count)
{
    for (int i = start + count; i < max_frames; ++i)
        renumber_frame(i, i - count);
}

bool add_clone(int frame, int start)
{
    if (!write_frame(frame)) return false;
    copy_view(start, frame);
    draw_nail(frame);
    return true;
}

bool add_blank(int frame)
{
    const Bitmap blank(default_frame_w, default_frame_h, opaque_black);
    if (!write_tga(frame_file(frame), blank)) {
        run_state.workspace_damaged = 1;
        report_unwritten(frame_file(frame), TIP_FRAME_NOT_WRITTEN);
        return false;
    }
    clear_nail(frame);
    return true;
}

/// Makes the new frames; returns how many of them could be written.
int fill_gap(int start, int count, int blank)
{
    for (int added = 0; added < count; ++added) {
        const int frame = start + 1 + added;
        if (!(blank == INSERT_CLONES ? add_clone(frame, start) : add_blank(frame))) return added;
    }
    return count;
}

void load_after_delete(int start, int count)
{
    if (store.current_frame < store.frame_count)
        fetch_frame(start, start, 0);
    else if (count < store.frame_count && start >= count)
        fetch_frame(start - count, start - count, 0);
    else
        fetch_frame(0, 0, 0);
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
    const int added = open_gap(start, count) ? fill_gap(start, count, blank) : 0;
    if (added < count) close_gap(start + 1 + added, count - added);
    save_nails();
    store.frame_count = store.frame_count + added;
    if (added > 0) copy_view(start, start + 1);
    animation.anim_count = build_anim_list();
}

void delete_frames(int start, int count)
{
    if (store.frame_count == 1) return tell(TEXT_FRAME_CANT_BE_DELETED, TEXT_NONE);
    if (start < 0 || start > max_frames - 1) {
        log_line("[ ERROR ] : Starting point OOB in call to delete_frames! start = %d", start);
        return;
    }
    if (count <= 0 || start + count >= max_frames || start + count > store.frame_count || count >= store.frame_count) {
        log_line("[ ERROR ] : Frame count OOB in call to delete_frames! num_frames = %d", count);
        return;
    }
    const WorkspaceVisit visit(run_state.program_dir);
    if (!visit.entered()) {
        log_line("[ ERROR ] : WORKSPACE directory unavailable. Aborting delete operation!");
        return;
    }
    for (int k = start; k < start + count; ++k) {
        const auto slot = static_cast<std::size_t>(k);
        if (!platform::remove_file(frame_file(k))) return report_unwritten(frame_file(k), TIP_FRAME_NOT_WRITTEN);
        view.frame_pan_x[slot] = view.frame_pan_y[slot] = 0;
        view.frame_zoom[slot] = 1;
        drop_cached_frame(k);
    }
    close_gap(start, count);
    store.frame_count = store.frame_count - count;
    load_after_delete(start, count);
    if (store.frame_count < 2) drop_onion_skin();
    animation.anim_count = build_anim_list();
}

} // namespace kelu
