// SPDX-License-Identifier: MIT
// Fetching, committing and exchanging the live frame.
#include "workspace/frame_store.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/lifted.h"
#include "draw/undo.h"
#include "gui/strings.h"
#include "imagefile/bmp.h"
#include "imagefile/refusal.h"
#include "imagefile/tga.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/browser_state.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "workspace/change_set.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/merged.h"
#include "workspace/repair.h"
#include "workspace/restore.h"
#include "workspace/running_work.h"
#include "workspace/thumbnails.h"
#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>

namespace kelu {
namespace {

constexpr int backdrop_lightness = 86; // steps of lightness from one checker tile to the next

/// Mean lightness of the picture, 0 to 255: half of the largest and smallest channel of each pixel.
int mean_lightness(BITMAP* picture)
{
    long sum = 0;
    for (int y = 0; y < picture->h; ++y) {
        const int* line = row(picture, y);
        for (int x = 0; x < picture->w; ++x) {
            const auto [low, high] = std::minmax({red_of(line[x]), green_of(line[x]), blue_of(line[x])});
            sum += low + high;
        }
    }
    return static_cast<int>(sum / (2L * picture->w * picture->h));
}

bool load_onion(const std::string& name)
{
    Bitmap merged = read_stored_frame(name);
    if (merged && store.alpha_edit_mode) {
        // The skin takes the role of the frame: in alpha editing it shows the alpha picture.
        Bitmap color = Bitmap::unfilled(merged.width(), merged.height());
        if (!color) return false;
        alpha_strip(merged, merged, color);
    }
    if (!merged) report_unread(name, TEXT_FRAME_NOT_READ);
    store.onion_bitmap = std::move(merged);
    return static_cast<bool>(store.onion_bitmap);
}

/// File and thumbnail of the live frame in one step.
bool write_with_nail(int frame)
{
    const std::string name = frame_file(frame);
    ChangeSet changes;
    const bool written = make_way(name) && write_live_frame(changes.stage(name)) &&
                         write_bmp(changes.stage(set_file("nal")), store.nail_sheet) && changes.commit();
    if (written) note_commit();
    return written;
}

/// Brings thumbnail, file and view of the live frame to where they are kept. False: the file could not be written.
bool commit_frame(int frame)
{
    put_back_piece();
    draw_nail(frame);
    if (!frame_changed()) {
        save_nails();
    } else if (!write_with_nail(frame)) {
        if (!write_frame(frame)) return false; // the picture before all; what else can't be written is reported
        save_nails();
    }
    keep_view(frame);
    return true;
}

/// The frame whose pictures the next adoption hands over to be written, -1 none.
int leaving = -1;

/// As `commit_frame`, but the file is written by the thread, once another picture has the live frame's place.
class FrameLeaving {
public:
    explicit FrameLeaving(int frame)
    {
        put_back_piece();
        update_frame_nail(0);
        hand_over_nails();
        if (frame_changed()) leaving = frame;
        keep_view(frame);
    }
    ~FrameLeaving() { leaving = -1; }
    FrameLeaving(const FrameLeaving&) = delete;
    FrameLeaving& operator=(const FrameLeaving&) = delete;
};

/// Checksum of the picture that was loaded into the live frame last, in merged form.
uint64_t last_loaded = 0;

uint64_t checksum(BITMAP* merged)
{
    constexpr uint64_t prime = 0x100000001b3;
    uint64_t sum = 0xcbf29ce484222325;
    for (int y = 0; y < merged->h; ++y) {
        for (const int pixel : std::span(row(merged, y), static_cast<std::size_t>(merged->w)))
            sum = (sum ^ static_cast<uint32_t>(pixel)) * prime;
    }
    return sum;
}

/// Before a picture is loaded over the live one: that becomes the one that a restore brings back, and what the frame's
/// file holds, unless it has itself just been loaded, when looking for the right file. False: it couldn't be written,
/// which is reported, or memory is too short.
bool keep_replaced_picture()
{
    put_back_piece();
    if (!frame_changed()) {
        note_view_before_load();
        return true;
    }
    Bitmap merged = Bitmap::unfilled(store.frame_bitmap.width(), store.frame_bitmap.height());
    if (!merged) return false;
    alpha_merge(merged);
    if (checksum(merged) == last_loaded) return true;
    note_view_before_load();
    settle_running_work();
    const WorkspaceVisit visit({});
    if (!visit.entered() || !commit_frame(store.current_frame)) {
        platform::forget_failure(); // it has been reported, and isn't the loaded file's
        picture_refusal = "The present picture can't be kept!";
        return false;
    }
    store.restoration_bitmap = std::move(merged);
    return true;
}

/// Loads a picture file of another program.
bool load_foreign_picture(const std::string& name, int format)
{
    Bitmap picture = load_picture(name, format);
    if (!picture || !keep_replaced_picture()) return false;
    last_loaded = checksum(picture);
    return adopt_picture(std::move(picture), false);
}

/// The pictures that are about to be replaced go to the thread, if they are those of a frame that is left.
void hand_over_leaving()
{
    if (leaving < 0) return;
    settle_frame();
    hand_over_left_frame({std::exchange(leaving, -1), std::move(color_picture()), std::move(alpha_picture())});
}

} // namespace

void keep_view(int frame)
{
    view.frame_pan_x[frame] = view.pan_x;
    view.frame_pan_y[frame] = view.pan_y;
    view.frame_zoom[frame] = view.zoom;
}

void take_view(int frame)
{
    view.frame_zoom[frame] = std::clamp(view.frame_zoom[frame], 1, max_zoom);
    view.pan_x = view.frame_pan_x[frame];
    view.pan_y = view.frame_pan_y[frame];
    view.zoom = view.frame_zoom[frame];
}

Bitmap read_stored_frame(const std::string& name)
{
    if (!platform::file_exists(name)) log_line("[ ERROR ] : Tried to load non-existent file! Name = %s", name);
    platform::forget_failure();
    wait_for_frame_file(name);
    Bitmap merged = read_tga(name);
    const bool large_enough = merged.width() >= least_frame_side && merged.height() >= least_frame_side;
    return large_enough ? std::move(merged) : Bitmap();
}

bool frame_out_of_reach(int frame)
{
    if (platform::last_failure() == 0 || platform::file_size(frame_file(frame)) < 0) return false;
    report_unread(frame_file(frame), TEXT_FRAME_NOT_READ);
    return true;
}

void show_stored_frame(int frame, Bitmap merged)
{
    store.current_frame = frame;
    if (!adopt_picture(std::move(merged), true)) replace_damaged_frame(frame);
    take_view(frame);
}

bool write_live_frame(const std::string& name)
{
    return write_tga(name, store.frame_bitmap.width(), store.frame_bitmap.height(), merged_rows());
}

void note_commit()
{
    settle_frame();
    begin_journal();
}

bool write_frame(int frame)
{
    const std::string name = frame_file(frame);
    if (settle_changes() && make_way(name) && write_live_frame(name)) {
        note_commit();
        return true;
    }
    report_unwritten(name, TEXT_FRAME_NOT_WRITTEN);
    return false;
}

bool adopt_picture(Bitmap merged, bool becomes_restoration)
{
    if (!merged) return false;
    const int w = merged.width(), h = merged.height();
    const auto fits = [w, h](const Bitmap& old) { return old.width() == w && old.height() == h; };
    // Old pictures of the same size lend their memory, which the system needn't clear; but those of a frame that is
    // left go to the thread.
    const bool lends_frame = becomes_restoration && fits(store.restoration_bitmap);
    const bool lends_alpha = leaving < 0 && fits(store.alpha_bitmap);
    const bool lends_coverage = fits(store.coverage_bitmap); // between two operations it is 0 all over
    Bitmap frame = lends_frame || !becomes_restoration ? Bitmap() : Bitmap::unfilled(w, h);
    Bitmap alpha = lends_alpha ? Bitmap() : Bitmap::unfilled(w, h);
    Bitmap coverage = lends_coverage ? Bitmap() : Bitmap(w, h);
    if ((!lends_frame && becomes_restoration && !frame) || (!lends_alpha && !alpha) || (!lends_coverage && !coverage))
        return false;
    hand_over_leaving();
    if (lends_frame) frame = std::move(store.restoration_bitmap);
    if (!lends_alpha) store.alpha_bitmap = std::move(alpha);
    if (!lends_coverage) store.coverage_bitmap = std::move(coverage);
    std::swap(store.frame_bitmap, becomes_restoration ? frame : merged);
    (becomes_restoration ? frame : merged).reset(); // what was the frame
    const Bitmap& whole = becomes_restoration ? merged : store.frame_bitmap;
    note_frame_size();
    clamp_pan();
    reset_undo_slots(
        [&](int y) { strip_row(row(whole, y), row(store.frame_bitmap, y), row(store.alpha_bitmap, y), w); });
    if (w < logical_w || h < logical_h) view.backdrop = mean_lightness(color_picture()) / backdrop_lightness;
    if (!becomes_restoration) return true;
    store.restoration_bitmap = std::move(merged);
    begin_journal();
    return true;
}

bool load_frame_file(const std::string& name, int how, int format)
{
    if (!platform::file_exists(name)) {
        log_line("[ ERROR ] : Tried to load non-existent file! Name = %s", name);
        return false;
    }
    if (how == LOAD_ONION) return load_onion(name);
    if (how == LOAD_STORED) return adopt_picture(read_stored_frame(name), true);
    return load_foreign_picture(name, format);
}

bool fetch_frame(int old_slot, int new_slot, int mode)
{
    if (new_slot < 0 || new_slot >= store.frame_count) {
        log_line("[ ERROR ] : New_frame OOB in call to fetch_frame! slot = %d", new_slot);
        return false;
    }
    const bool swaps = mode == 0 && new_slot != old_slot;
    if (swaps && (old_slot < 0 || old_slot >= max_frames)) {
        log_line("[ ERROR ] : Old_frame OOB in call to fetch_frame! slot = %d", old_slot);
        return false;
    }
    const WorkspaceVisit visit(mode != 0 || swaps ? browser_state.browser_dir : std::string());
    if (!visit.entered()) {
        log_line("[ ERROR ] : WORKSPACE directory unavailable. Aborting frame swap!");
        return false;
    }
    if (mode != 0) {
        store.onion_bitmap.reset();
        return load_frame_file(frame_file(new_slot), LOAD_ONION);
    }
    if (!settle_changes()) {
        report_unwritten(frame_file(new_slot), TEXT_FRAME_NOT_WRITTEN);
        return false;
    }
    std::optional<FrameLeaving> left;
    if (swaps && running_work_started()) left.emplace(old_slot);
    if (swaps && !left && !commit_frame(old_slot)) return false;
    if (swaps) refresh_frame_cache();
    Bitmap merged = read_stored_frame(frame_file(new_slot));
    if (!merged && frame_out_of_reach(new_slot)) return false;
    Bitmap unwritten = take_back_left_frame(new_slot);
    show_stored_frame(new_slot, std::move(merged));
    if (unwritten) adopt_picture(std::move(unwritten), false); // its file holds what it was before
    return true;
}

int count_workspace_frames()
{
    const WorkspaceVisit visit({});
    return visit.entered() ? count_frame_files(platform::FolderNames()) : 0;
}

bool show_onion_skin()
{
    if (store.frame_count < 2) return false;
    const int before = (store.current_frame + store.frame_count - 1) % store.frame_count;
    if (!store.onion_bitmap) fetch_frame(store.current_frame, before, 1);
    view.onion_on = 1;
    return true;
}

void switch_alpha_mode()
{
    toggle_alpha_edit();
    store.onion_bitmap.reset();
    if (!view.onion_on) return;
    view.onion_on = 0;
    show_onion_skin();
}

void drop_onion_skin()
{
    view.onion_on = 0;
    store.onion_bitmap.reset();
}

} // namespace kelu
