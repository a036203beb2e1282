// Missing and damaged files, made anew.
#include "workspace/repair.h"

#include "base/log.h"
#include "base/run_state.h"
#include "gui/tooltips.h"
#include "imagefile/bmp.h"
#include "platform/files.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "workspace/custom_tip.h"
#include "workspace/folder.h"
#include "workspace/frame_store.h"
#include "workspace/thumbnails.h"

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
    if (!repair.run()) report_unwritten(set_file(repair.file), TIP_WORKSPACE_NOT_WRITTEN);
    log_line(repair.line);
}

void replace_damaged_frame(int frame)
{
    const std::string name = frame_file(frame);
    run_state.workspace_damaged = 1;
    log_line("[ WARNING ] : Frame file is missing or corrupt. A blank frame takes its place. Name = %s", name);
    const bool moved =
        !platform::file_exists(name) || !keep_unreadable(name, frame_file(frame, file_set::damaged)).empty();
    const bool had_frame =
        store.frame_bitmap.width() >= least_frame_side && store.frame_bitmap.height() >= least_frame_side;
    const int w = had_frame ? store.frame_bitmap.width() : default_frame_w;
    const int h = had_frame ? store.frame_bitmap.height() : default_frame_h;
    if (adopt_picture(Bitmap(w, h, opaque_black), true) && moved) write_frame(frame);
}

int close_frame_gaps()
{
    int count = 0;
    for (int frame = 0; frame < max_frames; ++frame) {
        if (!platform::file_exists(frame_file(frame))) continue;
        if (frame != count) {
            log_line("[ WARNING ] : Frame %s moved up to close a gap: %s", frame_file(frame), frame_file(count));
            run_state.workspace_damaged = 1;
            if (!platform::rename_file(frame_file(frame), frame_file(count))) return count;
        }
        ++count;
    }
    return count;
}

} // namespace kelu
