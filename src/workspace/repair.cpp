// SPDX-License-Identifier: MIT
// Missing and damaged files, made anew.
#include "workspace/repair.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/strings.h"
#include "imagefile/bmp.h"
#include "platform/files.h"
#include "runtime/animation.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "workspace/custom_tip.h"
#include "workspace/folder.h"
#include "workspace/frame_store.h"
#include "workspace/frame_tables.h"
#include "workspace/thumbnails.h"
#include <utility>
#include <vector>

namespace kelu {
namespace {

constexpr int cel_side = 16; // pixels of a cel that is used instead of a lost one
constexpr int opaque_black = static_cast<int>(0xff000000U);

bool repair_cel()
{
    store.cel_bitmap = Bitmap(cel_side, cel_side);
    store.cel_source_bitmap = Bitmap(cel_side, cel_side);
    return write_bmp(set_file("cel"), store.cel_source_bitmap);
}

bool repair_nails()
{
    clear_bitmap(store.nail_sheet);
    return write_bmp(set_file("nal"), store.nail_sheet);
}

bool repair_tip()
{
    clear_custom_tip();
    return save_custom_tip();
}

/// Frames of which the thumbnails have yet to follow, by number before and after. Main thread.
std::vector<std::pair<int, int>> nail_moves;

/// Gives a frame the free number `to`; false when its file can't be renamed.
bool move_up(int from, int to, bool with_tables)
{
    log_line("[ WARNING ] : Frame %s moved up to close a gap: %s", frame_file(from), frame_file(to));
    run_state.workspace_damaged = 1;
    if (!platform::rename_file(frame_file(from), frame_file(to))) {
        report_unwritten(frame_file(to), TEXT_FRAME_NOT_WRITTEN);
        return false;
    }
    if (!with_tables) return true;
    copy_view(from, to);
    animation.anim_tag[to] = animation.anim_tag[from];
    animation.anim_delay[to] = animation.anim_delay[from];
    animation.anim_tag[from] = 0;
    animation.anim_delay[from] = 0;
    nail_moves.emplace_back(from, to);
    if (store.current_frame == from) store.current_frame = to;
    return true;
}

struct Repair {
    bool (*run)(); ///< false: the container could not be written
    const char* file;
    const char* line;
};
constexpr Repair repairs[] = {
    {repair_cel, "cel", "[ INFO ] : Cel container repaired"},
    {repair_nails, "nal", "[ INFO ] : Nail container repaired"},
    {repair_tip, "tip", "[ INFO ] : Custom tip container repaired"},
};

} // namespace

void repair_container(int which)
{
    const Repair& repair = repairs[which];
    run_state.workspace_damaged = 1;
    log_line("[ INFO ] : Workspace damage encountered. Attempting repair!");
    if (!make_way(set_file(repair.file)) || !repair.run())
        report_unwritten(set_file(repair.file), TEXT_WORKSPACE_NOT_WRITTEN);
    log_line(repair.line);
}

void replace_damaged_frame(int frame)
{
    const std::string name = frame_file(frame);
    run_state.workspace_damaged = 1;
    log_line("[ WARNING ] : Frame file is missing or corrupt. A blank frame takes its place. Name = %s", name);
    const bool moved =
        !platform::file_exists(name) || !keep_unreadable(name, frame_file(frame, file_set::damaged)).empty();
    if (!moved) protect_file(name);
    const bool had_frame =
        store.frame_bitmap.width() >= least_frame_side && store.frame_bitmap.height() >= least_frame_side;
    const int w = had_frame ? store.frame_bitmap.width() : default_frame_w;
    const int h = had_frame ? store.frame_bitmap.height() : default_frame_h;
    if (adopt_picture(Bitmap(w, h, opaque_black), true) && moved) write_frame(frame);
}

int close_frame_gaps(int table_frames)
{
    nail_moves.clear();
    const platform::FolderNames names;
    const bool numbered_already = count_frame_files(names) == table_frames;
    int count = 0;
    for (int frame = 0; frame < max_frames; ++frame) {
        if (!names.contains(frame_file(frame))) continue;
        if (frame != count && !move_up(frame, count, !numbered_already)) return count;
        ++count;
    }
    return count;
}

void move_nails_of_gaps()
{
    for (const auto& [from, to] : std::exchange(nail_moves, {}))
        move_nail(from, to);
}

} // namespace kelu
