// SPDX-License-Identifier: MIT
// A program folder with an empty store, and the program's tables on their start values.
#pragma once

#include "base/log.h"
#include "base/run_state.h"
#include "draw/undo.h"
#include "gui/menus.h"
#include "gui/scheme.h"
#include "gui/strings.h"
#include "imagefile/tga.h"
#include "platform/files.h"
#include "program/startup.h"
#include "runtime/animation.h"
#include "runtime/browser_state.h"
#include "runtime/failure_reports.h"
#include "runtime/grid.h"
#include "runtime/macros.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "support/temporary_folder.h"
#include "workspace/archive.h"
#include "workspace/blank_workspace.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_order.h"
#include "workspace/frame_store.h"
#include "workspace/merged.h"
#include "workspace/notice.h"
#include "workspace/settings.h"
#include "workspace/state.h"
#include "workspace/thumbnails.h"
#include <gtest/gtest.h>

namespace kelu {

inline int pixel(BITMAP* bitmap, int x = 0, int y = 0) { return row(bitmap, y)[x]; }

class WorkspaceTest : public testing::Test {
protected:
    WorkspaceTest()
    {
        std::filesystem::create_directory("WORKSPACE");
        std::filesystem::create_directory("resource");
        log_open();
        run_state.program_dir = folder.path().string();
        forget();
        store.cel_bitmap = Bitmap(2, 2);
        store.cel_source_bitmap = Bitmap(2, 2);
        told.clear();
        reported();
        show_notice = [](int first, int) { told.push_back(first); };
    }
    ~WorkspaceTest() override
    {
        show_notice = nullptr;
        log_close();
    }

    bool exists(const std::string& name) const { return std::filesystem::exists(folder.path() / "WORKSPACE" / name); }
    std::filesystem::path in_store(const std::string& name) const { return folder.path() / "WORKSPACE" / name; }
    std::string bytes(const std::string& name) const { return folder.text("WORKSPACE/" + name); }
    /// The log so far.
    std::string log() const { return folder.text("FW_log.txt"); }
    bool logged(const std::string& line) const { return log().find(line) != std::string::npos; }

    /// What is between two runs of the program; the sheet of thumbnails may be smaller where it would take most of the
    /// time.
    static void forget(int nail_w = 400, int nail_h = 400)
    {
        platform::change_directory(run_state.program_dir);
        FW_initialize_variables();
        clear_frame_cache();
        store.nail_sheet = Bitmap(nail_w, nail_h);
        store.tip_sheet = Bitmap(206, 62);
        menus.status_message = 0;
        run_state.workspace_damaged = 0;
    }
    static int read_state()
    {
        const WorkspaceVisit visit({});
        return read_workspace_state("current.spa");
    }
    /// The program's start on what lies in the store.
    static void start_again(int nail_w = 400, int nail_h = 400)
    {
        forget(nail_w, nail_h);
        if (read_state() == 0) begin_workspace();
        platform::change_directory(run_state.program_dir);
    }

    /// An empty store with the files of a folder. The program writes no file in place, so that names of the same files
    /// are as good as copies.
    static void fill_store(const std::filesystem::path& from)
    {
        std::filesystem::remove_all("WORKSPACE");
        std::filesystem::create_directory("WORKSPACE");
        for (const auto& entry : std::filesystem::directory_iterator(from))
            std::filesystem::create_hard_link(entry.path(), "WORKSPACE" / entry.path().filename());
    }
    /// Takes the failures that were reported, each as what, leaf of where, and why.
    static std::string reported()
    {
        std::string all;
        while (const auto report = take_failure_report())
            all += report->what + " " + report->where.substr(report->where.rfind('/') + 1) + " " + report->why + "\n";
        return all;
    }
    /// Puts a frame of one merged colour on disk.
    void put_frame(int frame, int color, int w = 8, int h = 6) const
    {
        ASSERT_TRUE(write_tga(in_store(frame_file(frame)).string(), Bitmap(w, h, color)));
    }
    /// The first pixel of a stored frame; 0 when there is none.
    int stored_pixel(int frame) const
    {
        const Bitmap picture = read_tga(in_store(frame_file(frame)).string());
        return picture ? row(picture, 0)[0] : 0;
    }
    /// Frames 0 to n - 1, frame i of the opaque colour 0x10 + i, of which the first is current.
    void make_frames(int n)
    {
        for (int i = 0; i < n; ++i)
            put_frame(i, frame_color(i));
        store.frame_count = n;
        store.current_frame = 0;
        ASSERT_TRUE(fetch_frame(0, 0, 0));
    }
    static constexpr int opaque = static_cast<int>(0xff000000U);
    static constexpr int frame_color(int i) { return opaque | (0x10 + i); }

    TemporaryFolder folder;
    inline static std::vector<int> told; ///< first lines of the dialogs shown
};

} // namespace kelu
