// SPDX-License-Identifier: MIT
// What an earlier run has left in journals, found at the next start.
#include "base/log.h"
#include "base/run_state.h"
#include "gui/strings.h"
#include "imagefile/tga.h"
#include "platform/files.h"
#include "runtime/view.h"
#include "workspace/folder.h"
#include "workspace/frame_store.h"
#include "workspace/journal_file.h"
#include "workspace/running_work.h"
#include <algorithm>
#include <vector>

namespace kelu {
namespace {

constexpr std::size_t journal_limit = std::size_t{1} << 32; // bytes

/// A journal that fits its frame.
struct Found {
    int frame;
    uint64_t serial;
    Bitmap picture; ///< the frame with its work, merged form
};

bool same_picture(const Bitmap& a, const Bitmap& b)
{
    if (a.width() != b.width() || a.height() != b.height()) return false;
    for (int y = 0; y < a.height(); ++y)
        if (!std::equal(row(a, y), row(a, y) + a.width(), row(b, y))) return false;
    return true;
}

void put_aside(const std::string& name)
{
    log_line("[ WARNING ] : %s doesn't belong to its frame", name);
    run_state.workspace_damaged = 1;
    keep_unreadable(name, std::string(file_set::damaged) + '.' + name);
}

/// Reads one journal. What it holds is given out when it isn't in the frame's file yet; whatever else it is, it goes.
std::optional<Found> read_journal(int frame)
{
    const std::string name = frame_file(frame, file_set::journal);
    Bytes bytes;
    if (!platform::read_file(name, journal_limit, bytes)) {
        put_aside(name);
        return std::nullopt;
    }
    const std::optional<JournalHead> head = read_journal_head(bytes);
    const Bitmap base = read_stored_frame(frame_file(frame));
    Bitmap picture = head && base ? replay_journal(bytes, base) : Bitmap();
    if (!picture) {
        put_aside(name);
        return std::nullopt;
    }
    if (same_picture(picture, base)) { // it was committed, and the end came before its journal could go
        platform::remove_file(name);
        return std::nullopt;
    }
    if (head->frame != frame || mark_of_file(frame_file(frame)) != head->base) {
        put_aside(name);
        return std::nullopt;
    }
    return Found{frame, head->serial, std::move(picture)};
}

/// Work on a frame that was left: its file takes it.
void commit_left_frame(const Found& left)
{
    if (write_tga(frame_file(left.frame), left.picture)) {
        platform::remove_file(frame_file(left.frame, file_set::journal));
        log_line("[ INFO ] : Work on %s was recovered", frame_file(left.frame));
    } else {
        report_unwritten(frame_file(left.frame), TEXT_FRAME_NOT_WRITTEN);
    }
}

} // namespace

std::optional<RecoveredWork> recover_work()
{
    std::vector<Found> all;
    const platform::FolderNames names;
    for (int frame = 0; frame < max_frames; ++frame) {
        const std::string name = frame_file(frame, file_set::journal);
        if (names.contains(name + ".new")) platform::remove_file(name + ".new");
        if (!names.contains(name)) continue;
        if (std::optional<Found> one = read_journal(frame)) all.push_back(std::move(*one));
    }
    if (all.empty()) return std::nullopt;
    std::ranges::sort(all, {}, &Found::serial);
    RecoveredWork last{all.back().frame, std::move(all.back().picture)};
    all.pop_back();
    for (const Found& left : all)
        commit_left_frame(left);
    log_line("[ INFO ] : Work on %s was recovered", frame_file(last.frame));
    return last;
}

} // namespace kelu
