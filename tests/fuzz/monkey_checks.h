// SPDX-License-Identifier: MIT
// What holds whatever the user does.
#pragma once

#include "base/run_state.h"
#include "draw/cel.h"
#include "draw/preview.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "gui/menus.h"
#include "gui/slots.h"
#include "gui/tooltips.h"
#include "loop/actions.h"
#include "runtime/frame_flags.h"
#include "runtime/view.h"
#include "screens/frame_loan.h"
#include "support/frames.h"
#include "support/pictures.h"
#include "workspace/folder.h"
#include "workspace/merged.h"
#include "workspace/settings.h"
#include "workspace/state.h"
#include <cstdlib>
#include <iostream>

namespace kelu::test {

inline long event_count = 0; ///< events of the present input so far

inline void require(bool holds, const std::string& what)
{
    if (holds) return;
    std::cerr << "Event " << event_count << ": " << what << "; menu " << menus.menu_id << '\n';
    std::abort();
}

/// Nothing is under way that has the picture or the keys to itself.
inline bool is_quiet()
{
    return menus.menu_id == MENU_DRAW && menus.status_message == TIP_NONE && preview.preview_kind == no_preview &&
           preview.preview_active == 0 && undo.operations == 0 && touched.tiles.empty() &&
           cel_work.cel_place.mode == CEL_NONE && cel_work.grab_x == no_grab && cel_work.borrowed == 0 &&
           action_state.frame_locked == 0 && run_state.gui_clicks_enabled != 0;
}

inline void check_words()
{
    if (menus.menu_id == MENU_GRID) return; // its fields write through numbers that its OKAY refuses
    for (const auto rows : {state_tags(), settings_tags()})
        for (const TagRow& row : rows)
            for (int minor = 0; minor < row.minors; ++minor)
                for (int i = 0; i < row.words(); ++i)
                    require(row.range_of(i).holds(row.get(minor, i)), "tag " + std::to_string(row.tag));
}

inline void check_pictures()
{
    const Bitmap& frame = lent_frame.kept_frame ? lent_frame.kept_frame : store.frame_bitmap;
    const auto fits = [&](const Bitmap& other) {
        return other && other.width() == frame.width() && other.height() == frame.height();
    };
    require(frame && frame.width() >= least_frame_side && frame.height() >= least_frame_side, "size of the frame");
    require(fits(store.alpha_bitmap) && fits(store.coverage_bitmap), "size of alpha or coverage");
    require(cel_work.borrowed != 0 || (store.cel_source_bitmap && store.cel_bitmap), "no cel");
    require(store.frame_count >= 1 && store.frame_count <= max_frames, "number of frames");
    require(store.current_frame >= 0 && store.current_frame < store.frame_count, "number of the frame");
    require(run_state.workspace_damaged == 0, "the workspace is damaged");
}

/// What a screen or a tool has borrowed is back.
inline void check_home()
{
    require(!lent_frame.kept_frame && frame_flags.clean_render == 0, "another picture is in the frame's place");
    require(run_state.timers_locked == 0 && gui_logic.gui_logic_paused == 0, "the timers stand still");
}

/// All steps lead back and forth. The program waits between two frames with nothing under way.
inline void check_history()
{
    require(difference(stroke_source(), store.frame_bitmap).empty(), "a writer has not reported what it wrote");
    std::vector<Bitmap> pictures;
    for (auto steps = std::ranges::count_if(undo.undo_age, [](int age) { return age >= 0; }); steps > 0; --steps) {
        pictures.push_back(store.frame_bitmap.copy());
        undo_step();
        check_pictures();
    }
    for (; !pictures.empty(); pictures.pop_back()) {
        redo_step();
        require(difference(store.frame_bitmap, pictures.back()).empty(), "a redo has brought another picture");
    }
}

/// The work as it is, in memory and on disk.
struct Work {
    explicit Work(const Session& session) : files(frame_files(session)) {}
    std::map<std::string, std::string> files;
    int count = store.frame_count, current = store.current_frame;
    Bitmap picture = merged_picture(color_picture(), alpha_picture());
};

/// With nothing under way, and a disk that can be written.
inline void check_files(const Session& session)
{
    const auto files = frame_files(session);
    for (int frame = 0; frame < store.frame_count; ++frame)
        require(files.contains(frame_file(frame)), frame_file(frame) + " is missing");
}

/// What an end and a start have made of it. `cut`: the end was none, and the files are those of then.
inline void check_start(const Work& before, const Session& session, bool cut)
{
    const Work after(session);
    check_pictures();
    require(after.count == before.count && std::ssize(after.files) == after.count,
            std::to_string(before.count) + " frames have become " + std::to_string(after.count));
    const WorkspaceVisit visit({});
    const Bitmap found =
        after.current == before.current ? after.picture.copy() : read_stored_frame(frame_file(before.current));
    require(difference(found, before.picture).empty(), "the start has another picture");
    if (cut) return;
    require(after.current == before.current, "the start shows another frame");
    require(after.files == before.files, "the start has changed files");
    for (const auto& [name, bytes] : after.files)
        require(static_cast<bool>(read_stored_frame(name)), name + " can't be read");
}

} // namespace kelu::test
