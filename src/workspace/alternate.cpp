// The second workspace, and the exchange with it.
#include "workspace/alternate.h"

#include "base/log.h"
#include "platform/files.h"
#include "runtime/view.h"
#include "workspace/folder.h"
#include "workspace/timers_lock.h"

namespace kelu {
namespace {

constexpr const char* containers[] = {"cel", "nal", "spa", "tip"};

void take_over(const std::string& alternate, const std::string& current)
{
    if (!platform::file_exists(alternate)) return;
    if (!platform::rename_file(alternate, current)) log_line("[ ERROR ] : Couldn't rename %s", alternate);
}

} // namespace

void swap_to_alternate_workspace()
{
    const TimersLock lock;
    log_line("[ INFO ] : Swapping to alternate workspace");
    for (int frame = 0; frame < max_frames; ++frame)
        take_over(frame_file(frame, file_set::alternate), frame_file(frame));
    for (const char* ending : containers)
        take_over(set_file(ending, file_set::alternate), set_file(ending));
}

void remove_alternate_files()
{
    for (int frame = 0; frame < max_frames; ++frame)
        platform::remove_file(frame_file(frame, file_set::alternate));
    for (const char* ending : containers)
        platform::remove_file(set_file(ending, file_set::alternate));
}

} // namespace kelu
