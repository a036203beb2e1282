// SPDX-License-Identifier: MIT
// The small window that shows how far an archive or an animation has come.
#pragma once

#include "workspace/archive.h"
#include <chrono>

namespace kelu {

/// Exists from its making to its end, which leaves the screen without a window.
class ArchiveProgress {
public:
    /// `title` is a row of the strings. `steps` frames make the whole bar; `show_progress` brings the picture on the
    /// screen up to date. `cancelable`: the window has a button for `called_off`.
    ArchiveProgress(int title, int steps, ShowProgress show_progress, bool cancelable = false);
    ~ArchiveProgress();
    ArchiveProgress(const ArchiveProgress&) = delete;
    ArchiveProgress& operator=(const ArchiveProgress&) = delete;
    /// One more frame is done: moves the bar and shows it.
    void step();
    /// Shows that `done` of `all` is done.
    void show_part(int done, int all);
    /// Fills the bar and shows it.
    void finish();
    /// True once the user has called the work off, by the button or by Escape, or wants to leave the program.
    bool called_off();

private:
    void show_move(int percent);
    void show(int percent);
    ShowProgress show_progress_;
    float done_ = 0; // per cent
    int shown_ = 0;  // per cent
    std::chrono::steady_clock::time_point last_shown_ = std::chrono::steady_clock::now();
    float step_; // per cent of one frame
    bool cancelable_, called_off_ = false;
};

} // namespace kelu
