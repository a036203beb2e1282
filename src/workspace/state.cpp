// SPDX-License-Identifier: MIT
// The state of a workspace: reading, repair of its values, writing.
#include "workspace/state.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/gradient.h"
#include "draw/grid.h"
#include "draw/lifted.h"
#include "draw/preview.h"
#include "draw/tips.h"
#include "gui/menus.h"
#include "gui/strings.h"
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
#include "workspace/merged.h"
#include "workspace/repair.h"
#include "workspace/running_work.h"
#include "workspace/tag_files.h"
#include "workspace/text_font.h"
#include "workspace/thumbnails.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int recovery_ticks = 480; // its message stays until the user has found the picture
constexpr int opaque_black = static_cast<int>(0xff000000U);
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

struct WrittenContainer {
    const char* ending;
    bool (*write)(const std::string& name);
};

/// A blank picture that only stands in for a file which the system wouldn't read doesn't take that file's place.
bool frame_stands_in() { return file_protected(frame_file(store.current_frame)) && !frame_changed(); }

bool write_cel(const std::string& name) { return write_bmp(name, store.cel_source_bitmap); }
bool write_nails(const std::string& name) { return write_bmp(name, store.nail_sheet); }

constexpr WrittenContainer written_containers[] = {{"cel", write_cel}, {"tip", write_custom_tip}, {"nal", write_nails}};

/// Everything that belongs to the state, which becomes the workspace's in one step.
bool write_at_once(const std::string& file_name)
{
    draw_nail(store.current_frame);
    ChangeSet changes;
    for (const WrittenContainer& container : written_containers)
        if (!make_way(set_file(container.ending)) || !container.write(changes.stage(set_file(container.ending))))
            return false;
    const std::string frame = frame_file(store.current_frame);
    if (!frame_stands_in() && (!make_way(frame) || !write_live_frame(changes.stage(frame)))) return false;
    if (!make_way(file_name) || !write_state_file(changes.stage(file_name)) || !changes.commit()) return false;
    note_commit();
    return true;
}

/// As much of it as can be written, where not all can, and the rest is reported.
bool write_one_by_one(const std::string& file_name, bool spa_only)
{
    bool good = true;
    const auto note = [&good](const std::string& name, bool written) {
        if (!written) report_unwritten(name, TEXT_WORKSPACE_NOT_WRITTEN);
        good = good && written;
    };
    if (!settle_changes()) { // a change that waits would take back what is written now
        report_unwritten(file_name, TEXT_WORKSPACE_NOT_WRITTEN);
        return false;
    }
    if (!spa_only) {
        for (const WrittenContainer& container : written_containers) {
            const std::string name = set_file(container.ending);
            note(name, make_way(name) && container.write(name));
        }
        good = (frame_stands_in() || write_frame(store.current_frame)) && good;
    }
    note(file_name, make_way(file_name) && write_state_file(file_name));
    return good;
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

/// What a workspace has when no file says otherwise.
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

/// A blank picture where the current frame has none. The file of one that the system wouldn't read stays where it is.
void stand_in(bool out_of_reach)
{
    if (out_of_reach) {
        protect_file(frame_file(store.current_frame));
        adopt_picture(Bitmap(default_frame_w, default_frame_h, opaque_black), true);
    } else {
        replace_damaged_frame(store.current_frame);
    }
}

/// The number of frames is what lies in the store, whatever the state says.
void load_current_frame()
{
    store.frame_count = std::max(1, close_frame_gaps(store.frame_count));
    std::optional<RecoveredWork> work = recover_work();
    if (work) store.current_frame = work->frame;
    store.current_frame = std::min<int>(store.current_frame, store.frame_count - 1);
    Bitmap merged = read_stored_frame(frame_file(store.current_frame));
    // One that the system won't read stays as it is, and another frame takes its place on the screen.
    const bool out_of_reach = !merged && frame_out_of_reach(store.current_frame);
    if (out_of_reach) {
        for (int frame = 0; !merged && frame < store.frame_count; ++frame) {
            merged = read_stored_frame(frame_file(frame));
            if (merged) store.current_frame = frame;
        }
    }
    if (!adopt_picture(std::move(merged), true)) stand_in(out_of_reach);
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

bool write_state_file(const std::string& name)
{
    keep_view(store.current_frame);
    return write_tag_file(name, state_tags());
}

bool write_workspace_state(const std::string& file_name, bool spa_only)
{
    check_name(file_name);
    const bool left_written = settle_running_work();
    put_back_piece();
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
        if (visit.entered() || !visit.found_program())
            written = (!spa_only && write_at_once(file_name)) || write_one_by_one(file_name, spa_only);
        else
            report_unwritten(workspace_folder, TEXT_WORKSPACE_NOT_WRITTEN); // its files have no place here
    }
    browser_state.browser_dir = browser_dir;
    return written && left_written;
}

void load_containers()
{
    for (const ContainerRow& row : containers) {
        const std::string name = set_file(row.ending);
        if (row.load()) continue;
        // One that is there and can't be read is put aside; where that fails it isn't written over.
        if (platform::file_exists(name) && keep_unreadable(name, set_file(row.ending, file_set::damaged)).empty())
            protect_file(name);
        repair_container(row.container);
    }
    move_nails_of_gaps();
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
    if (!finish_changes()) report_unwritten(set_file("spa"), TEXT_WORKSPACE_NOT_WRITTEN);
    forget_protected_files();
    bool alternate = platform::file_exists(set_file("spa", file_set::alternate));
    while (read_tag_file(file_name, set_file("spa", file_set::damaged), state_tags(), TEXT_WORKSPACE_NOT_READ) ==
           TagFile::MISSING) {
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
