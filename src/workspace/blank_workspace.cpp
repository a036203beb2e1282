// SPDX-License-Identifier: MIT
// How a workspace begins: a blank frame, a blank cel and fresh options.
#include "workspace/blank_workspace.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/preview.h"
#include "gui/strings.h"
#include "imagefile/bmp.h"
#include "imagefile/tga.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/animation.h"
#include "runtime/color_band.h"
#include "runtime/color_settings.h"
#include "runtime/grid.h"
#include "runtime/pixels.h"
#include "runtime/random.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "workspace/change_set.h"
#include "workspace/custom_tip.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_store.h"
#include "workspace/repair.h"
#include "workspace/state.h"
#include "workspace/text_font.h"
#include "workspace/thumbnails.h"
#include "workspace/timers_lock.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int opaque_black = static_cast<int>(0xff000000U);
constexpr std::size_t random_favorites = 10; // those of the drawing menu
constexpr const char* state_file = "current.spa";

/// The pictures: a black opaque frame, and black in the containers.
void blank_pictures()
{
    adopt_picture(Bitmap(default_frame_w, default_frame_h, opaque_black), true);
    for (BITMAP* picture : {store.cel_bitmap.get(), store.cel_source_bitmap.get(), store.nail_sheet.get()})
        if (picture) clear_bitmap(picture);
    clear_custom_tip();
}

void blank_state()
{
    view.frame_pan_x.fill(0);
    view.frame_pan_y.fill(0);
    view.frame_zoom.fill(1);
    view.pan_x = view.pan_y = 0;
    reset_palette_and_slots();
    store.current_frame = 0;
    store.frame_count = 1;
    drop_onion_skin();
    view.onion_opacity = View().onion_opacity;
    grid = {};
    preview = {};
    for (Shared<uint8_t>& tag : animation.anim_tag)
        tag = 0;
    for (Shared<int>& delay : animation.anim_delay)
        delay = 0;
    animation.anim_count = build_anim_list();
    store.workspace_title = "UNNAMED WORKSPACE";
    store.workspace_notes = "...";
}

/// The files of a new workspace. Its state is written once memory holds it; until then the pictures alone make one.
bool clear_files()
{
    ChangeSet changes;
    if (!write_tga(changes.stage(frame_file(0)), Bitmap(default_frame_w, default_frame_h, opaque_black)) ||
        !write_bmp(changes.stage(set_file("cel")),
                   Bitmap(store.cel_source_bitmap.width(), store.cel_source_bitmap.height())) ||
        !write_bmp(changes.stage(set_file("nal")), Bitmap(nail_sheet_side, nail_sheet_side)) ||
        !write_bmp(changes.stage(set_file("tip")), Bitmap(custom_tip_w, custom_tip_h)))
        return false;
    for (int frame = 0; frame < max_frames; ++frame) {
        if (frame > 0) changes.remove(frame_file(frame));
        changes.remove(frame_file(frame, file_set::backup));
    }
    changes.remove(set_file("spa"));
    return changes.commit();
}

} // namespace

void reset_palette_and_slots()
{
    for (std::size_t i = 0; i < random_favorites; ++i)
        toolbox.favorites[i] = random_color();
    for (Shared<int>& favorite : toolbox.extended_favorites)
        favorite = unchosen_favorite;
    spectrum.spectrum_start = random_color();
    spectrum.spectrum_end = random_color();
    const Toolbox start;
    toolbox.tool_slots = start.tool_slots;
    toolbox.ink_slots = start.ink_slots;
    toolbox.tool_slot = 0;
    toolbox.ink_slot = 0;
    color_settings.favorites_scroll = 0;
}

void make_blank_workspace()
{
    store.current_frame = 0;
    blank_pictures();
    blank_state();
    write_workspace_state(state_file, false);
}

void clear_workspace()
{
    const TimersLock lock;
    {
        const WorkspaceVisit visit(run_state.program_dir);
        if (!visit.found_program() || !visit.entered()) {
            log_line("[ ERROR ] : WORKSPACE directory unavailable. Aborting clear operation!");
            return;
        }
        if (!clear_files()) {
            log_line("[ ERROR ] : The workspace stays as it was: %s", platform::failure_reason());
            report_unwritten(state_file, TEXT_WORKSPACE_NOT_WRITTEN);
            return;
        }
        forget_protected_files();
    }
    make_blank_workspace();
    clear_frame_cache();
}

void begin_workspace()
{
    restore_text_font();
    if (count_workspace_frames() == 0) {
        make_blank_workspace();
        return;
    }
    {
        const WorkspaceVisit visit({});
        store.frame_count = close_frame_gaps(0);
        store.current_frame = 0;
        if (!load_frame_file(frame_file(0), LOAD_STORED)) replace_damaged_frame(0);
        load_containers();
        refresh_derived_state();
    }
    write_workspace_state(state_file, false);
}

} // namespace kelu
