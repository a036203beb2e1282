// SPDX-License-Identifier: MIT
// The second workspace, and the exchange with it.
#include "workspace/alternate.h"

#include "base/log.h"
#include "gui/strings.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "runtime/view.h"
#include "workspace/change_set.h"
#include "workspace/folder.h"
#include "workspace/timers_lock.h"

namespace kelu {
namespace {

constexpr const char* containers[] = {"cel", "nal", "spa", "tip"};

void take_over(ChangeSet& changes, const std::string& alternate, const std::string& current)
{
    if (platform::file_exists(alternate)) changes.move(alternate, current);
}

} // namespace

void swap_to_alternate_workspace()
{
    constexpr int tries = 2; // a disk that fails once may not do so again
    const TimersLock lock;
    log_line("[ INFO ] : Swapping to alternate workspace");
    for (int i = 0; i < tries; ++i) {
        ChangeSet changes;
        for (int frame = 0; frame < max_frames; ++frame)
            take_over(changes, frame_file(frame, file_set::alternate), frame_file(frame));
        for (const char* ending : containers)
            take_over(changes, set_file(ending, file_set::alternate), set_file(ending));
        if (changes.commit()) return;
    }
    log_line("[ ERROR ] : Couldn't swap to the alternate workspace: %s", platform::failure_reason());
    report_unwritten(set_file("spa"), TEXT_WORKSPACE_NOT_WRITTEN);
}

void remove_alternate_files()
{
    // A whole set is a workspace that could not be taken over, and nobody's to throw away.
    if (platform::file_exists(set_file("spa", file_set::alternate))) return;
    const platform::FolderNames names;
    const auto remove = [&names](const std::string& name) {
        if (names.contains(name)) platform::remove_file(name);
    };
    for (int frame = 0; frame < max_frames; ++frame)
        remove(frame_file(frame, file_set::alternate));
    for (const char* ending : containers)
        remove(set_file(ending, file_set::alternate));
}

} // namespace kelu
