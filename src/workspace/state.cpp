// The state of a workspace: reading, repair of its values, writing.
#include "workspace/state.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/gradient.h"
#include "draw/grid.h"
#include "draw/preview.h"
#include "draw/tips.h"
#include "gui/menus.h"
#include "gui/tooltips.h"
#include "imagefile/bmp.h"
#include "platform/files.h"
#include "runtime/animation.h"
#include "runtime/browser_state.h"
#include "runtime/failure.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "workspace/alternate.h"
#include "workspace/blank_workspace.h"
#include "workspace/change_set.h"
#include "workspace/custom_tip.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_store.h"
#include "workspace/repair.h"
#include "workspace/running_work.h"
#include "workspace/tag_files.h"
#include "workspace/text_font.h"
#include "workspace/thumbnails.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int recovery_ticks = 480;            // the message of it stands until the user has found his picture
constexpr std::size_t least_name = 5;          // letters of a state file's name: its ending makes way for the frames'
constexpr std::size_t longest_directory = 255; // bytes of the browser's folder in a state file

/// A name without an ending of three letters is a fault of the caller that no data can survive.
void check_name(const std::string& file_name)
{
    if (file_name.size() >= least_name) return;
    constexpr const char* line = "[ ERROR ] : Length of workspace filename is too short! Cannot proceed!";
    log_line(line);
    fatal_stop(line);
}

bool write_container(const char* ending, bool written)
{
    if (!written) report_unwritten(set_file(ending), TIP_WORKSPACE_NOT_WRITTEN);
    return written;
}

/// Tries all of them, whichever fails.
bool write_pictures()
{
    bool good = write_container("cel", write_bmp(set_file("cel"), store.cel_source_bitmap));
    good = write_container("tip", save_custom_tip()) && good;
    update_frame_nail(0);
    good = write_container("nal", write_bmp(set_file("nal"), store.nail_sheet)) && good;
    return write_frame(store.current_frame) && good;
}

bool load_cel()
{
    Bitmap picture = read_bmp(set_file("cel"));
    Bitmap source = picture.copy();
    if (!source) return false;
    store.cel_bitmap = std::move(picture);
    store.cel_source_bitmap = std::move(source);
    return true;
}

bool load_nails()
{
    const Bitmap sheet = read_bmp(set_file("nal"));
    if (sheet) blit(sheet, store.nail_sheet, 0, 0, 0, 0, nail_sheet_side, nail_sheet_side);
    return static_cast<bool>(sheet);
}

struct ContainerRow {
    int container;
    const char* ending;
    bool (*load)();
};
constexpr ContainerRow containers[] = {
    {CONTAINER_CEL, "cel", load_cel},
    {CONTAINER_TIP, "tip", load_custom_tip},
    {CONTAINER_NAILS, "nal", load_nails},
};

/// What a workspace has when nothing tells otherwise.
void set_missing_state()
{
    view.frame_pan_x.fill(0);
    view.frame_pan_y.fill(0);
    view.frame_zoom.fill(1);
    reset_palette_and_slots();
    preferences.cel_masking = 1;
    preferences.file_preview_mode = 1;
    preview = {};
    store.frame_count = 1;
    store.current_frame = 0;
    view.pan_x = view.pan_y = 0;
}

/// The number of frames is what lies in the store, whatever the state says.
void load_current_frame()
{
    store.frame_count = std::max(1, close_frame_gaps());
    std::optional<RecoveredWork> work = recover_work();
    if (work) store.current_frame = work->frame;
    store.current_frame = std::min<int>(store.current_frame, store.frame_count - 1);
    Bitmap merged = read_stored_frame(frame_file(store.current_frame));
    // One that the system won't read stays as it is, and another frame takes its place on the screen.
    if (!merged && frame_out_of_reach(store.current_frame)) {
        run_state.workspace_damaged = 1;
        for (int frame = 0; !merged && frame < store.frame_count; ++frame) {
            merged = read_stored_frame(frame_file(frame));
            if (merged) store.current_frame = frame;
        }
    }
    if (!adopt_picture(std::move(merged), true)) replace_damaged_frame(store.current_frame);
    if (work && adopt_picture(std::move(work->picture), false))
        flash_status_message(TIP_WORK_RECOVERED, recovery_ticks);
}

} // namespace

Bytes workspace_state_bytes()
{
    keep_view(store.current_frame);
    const std::string browser_dir = browser_state.browser_dir;
    browser_state.browser_dir = platform::upper_case(platform::working_directory()).substr(0, longest_directory);
    Bytes bytes;
    ByteWriter out(bytes);
    write_tags(state_tags(), out);
    browser_state.browser_dir = browser_dir;
    return bytes;
}

bool write_workspace_state(const std::string& file_name, bool spa_only)
{
    check_name(file_name);
    settle_running_work();
    keep_view(store.current_frame);
    bool written = false;
    const std::string browser_dir = browser_state.browser_dir;
    browser_state.browser_dir = platform::upper_case(platform::working_directory()).substr(0, longest_directory);
    {
        const WorkspaceVisit visit(run_state.program_dir);
        if (visit.found_program()) {
            log_line("[ SPA ] : Workspace save at: %s", run_state.program_dir);
            log_line("");
        } else {
            log_line("[ ERROR ] : WORKSPACE directory unavailable. Writing workspace to current location");
            log_line("[ STATS ] : Current location is: %s", platform::working_directory());
        }
        written = spa_only || write_pictures();
        if (!write_tag_file(file_name, state_tags())) {
            report_unwritten(file_name, TIP_WORKSPACE_NOT_WRITTEN);
            written = false;
        }
    }
    browser_state.browser_dir = browser_dir;
    return written;
}

void load_containers()
{
    for (const ContainerRow& row : containers) {
        const std::string name = set_file(row.ending);
        if (row.load()) continue;
        // One that is there and can't be read is put aside; where that fails it must not be written over.
        if (platform::file_exists(name) && keep_unreadable(name, set_file(row.ending, file_set::damaged)).empty())
            run_state.workspace_damaged = 1;
        repair_container(row.container);
    }
}

void refresh_derived_state()
{
    repair_grid();
    update_gradient_geometry();
    rebuild_tip_cursor();
    animation.anim_count = build_anim_list();
    if (view.onion_on) {
        view.onion_on = 0;
        show_onion_skin();
    }
}

int read_workspace_state(const std::string& file_name)
{
    finish_changes();
    bool alternate = platform::file_exists(set_file("spa", file_set::alternate));
    while (read_tag_file(file_name, set_file("spa", file_set::damaged), state_tags()) == TagFile::MISSING) {
        set_missing_state();
        if (!alternate) return 0;
        swap_to_alternate_workspace();
        alternate = false;
    }
    check_name(file_name);
    load_current_frame();
    load_containers();
    remove_alternate_files();
    restore_text_font();
    refresh_derived_state();
    return 1;
}

} // namespace kelu
