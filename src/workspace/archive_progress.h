// The small window that shows how far an archive has come.
#pragma once

#include "workspace/archive.h"

namespace kelu {

/// Exists from its making to its end, which leaves the screen without a window.
class ArchiveProgress {
public:
    /// `title` is a row of the strings. `steps` frames make the whole bar; `show_progress` brings the picture on the
    /// screen up to date.
    ArchiveProgress(int title, int steps, ShowProgress show_progress);
    ~ArchiveProgress();
    ArchiveProgress(const ArchiveProgress&) = delete;
    ArchiveProgress& operator=(const ArchiveProgress&) = delete;
    /// One more frame is done: moves the bar and shows it.
    void step();
    /// Fills the bar and shows it.
    void finish();

private:
    void show(int percent);
    ShowProgress show_progress_;
    float done_ = 0; // per cent
    float step_;     // per cent of one frame
};

} // namespace kelu
