// SPDX-License-Identifier: MIT
// Pictures that become frames behind the last one, all of them or none.
#pragma once

#include "base/bitmap.h"
#include "workspace/change_set.h"
#include "workspace/folder.h"
#include <optional>
#include <vector>

namespace kelu {

/// Collects frames in the store's folder from its making on; without a `commit` nothing has changed. The process is in
/// that folder meanwhile, and back where it was at the end.
class FrameImport {
public:
    FrameImport();
    /// Frames that the workspace has room for.
    static int room();
    /// Adds a picture in merged form as the next frame. Sides below a frame's least get transparent pixels added.
    /// False: it can't be had or written; `platform::failure_reason` says why.
    bool add(BITMAP* picture);
    /// Number of the frames so far.
    int count() const { return count_; }
    /// Makes them frames of the workspace, and part of the animation with the delays of `delays`, one a frame. The
    /// caller writes the state. False: nothing has changed.
    bool commit(const std::vector<int>& delays);

private:
    WorkspaceVisit visit_;
    std::optional<ChangeSet> changes_; ///< empty when the folder could not be entered
    int count_ = 0;
};

} // namespace kelu
