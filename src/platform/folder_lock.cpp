// SPDX-License-Identifier: MIT
// The lock lies on the folder itself, so that no file of it can be left behind.
#include "platform/folder_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace kelu::platform {
namespace {

int locked = -1; ///< handle of the folder that is ours; main thread

} // namespace

bool lock_folder()
{
    unlock_folder();
    locked = open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (locked < 0 || flock(locked, LOCK_EX | LOCK_NB) == 0) return true;
    const bool taken = errno == EWOULDBLOCK;
    unlock_folder();
    return !taken;
}

void unlock_folder()
{
    if (locked >= 0) close(std::exchange(locked, -1));
}

} // namespace kelu::platform
