// SPDX-License-Identifier: MIT
// The system's calls on files, and the words for their failures.
#include "platform/file_calls.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kelu::platform {
namespace {

thread_local int last_error = 0; ///< error number of the last failure

struct Reason {
    int error;
    const char* words;
};
constexpr Reason reasons[] = {
    {ENOSPC, "NO SPACE LEFT"},        {EDQUOT, "NO SPACE LEFT"},   {EFBIG, "FILE TOO LARGE"},
    {EACCES, "NO PERMISSION"},        {EPERM, "NO PERMISSION"},    {EROFS, "DISK IS READ-ONLY"},
    {ENOENT, "NO SUCH FILE"},         {ENOTDIR, "NO SUCH FOLDER"}, {EISDIR, "A FOLDER IS IN THE WAY"},
    {EEXIST, "A FILE IS IN THE WAY"}, {EMFILE, "TOO MANY FILES"},  {ENFILE, "TOO MANY FILES"},
    {ENAMETOOLONG, "NAME TOO LONG"},  {ENODEV, "NO SUCH DEVICE"},  {EIO, "ERROR OF THE DISK"},
};

} // namespace

const FileCalls system_file_calls = {
    [](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); },
    ::read,
    ::write,
    ::fsync,
    ::syncfs,
    ::close,
    ::rename,
    ::unlink,
    ::link,
    ::mkdir,
};

bool note_failure()
{
    last_error = errno;
    return false;
}

void forget_failure() { last_error = 0; }

int last_failure() { return last_error; }

const char* failure_reason() { return reason_of(last_error); }

const char* reason_of(int error)
{
    for (const Reason& reason : reasons)
        if (reason.error == error) return reason.words;
    return "ERROR OF THE SYSTEM";
}

} // namespace kelu::platform
