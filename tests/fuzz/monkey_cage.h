// SPDX-License-Identifier: MIT
// What a program under random input can't leave: a folder, beyond which it neither goes nor reads nor writes; and a
// time of its own, which passes with its frames.
#pragma once

#include "platform/file_calls.h"
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string>
#include <string_view>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

namespace kelu {

inline std::string cage;                          ///< the folder, absolute; empty: none
inline std::atomic<long> frame_time;              ///< of all frames so far, 1/100 s
inline std::atomic<bool> disk_is_full = false;    ///< nothing can be written
inline thread_local bool lives_by_frames = false; ///< true in the thread whose time that is, while the program runs

/// True for a path in the cage, when the working directory is.
inline bool in_cage(const char* name)
{
    const std::string_view path = name;
    return cage.empty() || (path.find("..") == path.npos && (!path.starts_with('/') || path.starts_with(cage)));
}
inline bool in_cage(unsigned) { return true; }

template <auto Call, class... Words>
int call_in_cage(Words... words)
{
    errno = EACCES;
    return (in_cage(words) && ...) ? (platform::system_file_calls.*Call)(words...) : -1;
}

/// Nothing is flushed to disk, which takes long and shows only when the power goes.
inline platform::FileCalls caged_calls()
{
    using platform::FileCalls;
    FileCalls calls = platform::system_file_calls;
    calls.open = call_in_cage<&FileCalls::open>;
    calls.write = [](int handle, const void* bytes, std::size_t count) -> ssize_t {
        errno = ENOSPC;
        return disk_is_full ? -1 : platform::system_file_calls.write(handle, bytes, count);
    };
    calls.flush = calls.flush_all = [](int) { return 0; };
    calls.rename = call_in_cage<&FileCalls::rename>;
    calls.remove = call_in_cage<&FileCalls::remove>;
    calls.link = call_in_cage<&FileCalls::link>;
    calls.make_folder = call_in_cage<&FileCalls::make_folder>;
    return calls;
}

} // namespace kelu

// These take the place of the system's calls in the whole process.

extern "C" int clock_gettime(clockid_t id, timespec* time) noexcept
{
    const auto result = static_cast<int>(syscall(SYS_clock_gettime, id, time));
    const long now = kelu::frame_time;
    if (kelu::lives_by_frames && id == CLOCK_MONOTONIC) *time = {now / 100, now % 100 * 10000000};
    return result;
}

extern "C" int chdir(const char* path) noexcept
{
    std::array<char, PATH_MAX> real{};
    if (kelu::cage.empty() || (realpath(path, real.data()) && kelu::in_cage(real.data())))
        return static_cast<int>(syscall(SYS_chdir, path));
    errno = EACCES;
    return -1;
}
