// The second workspace, and the exchange with it.
#include "workspace/alternate.h"

#include "base/log.h"
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
    const TimersLock lock;
    log_line("[ INFO ] : Swapping to alternate workspace");
    ChangeSet changes;
    for (int frame = 0; frame < max_frames; ++frame)
        take_over(changes, frame_file(frame, file_set::alternate), frame_file(frame));
    for (const char* ending : containers)
        take_over(changes, set_file(ending, file_set::alternate), set_file(ending));
    if (!changes.commit())
        log_line("[ ERROR ] : Couldn't swap to the alternate workspace: %s", platform::failure_reason());
}

void remove_alternate_files()
{
    for (int frame = 0; frame < max_frames; ++frame)
        platform::remove_file(frame_file(frame, file_set::alternate));
    for (const char* ending : containers)
        platform::remove_file(set_file(ending, file_set::alternate));
}

} // namespace kelu
