// SPDX-License-Identifier: MIT
// The table of calls that count and fail.
#include "support/failing_calls.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>

namespace kelu {
namespace {

const platform::FileCalls& system = platform::system_file_calls;

Fault fault = Fault::NONE;
int fails_at = 0, calls = 0;

/// Counts a call; true when it is to fail.
bool fails()
{
    ++calls;
    if (fault == Fault::NONE || calls < fails_at || (calls > fails_at && fault < Fault::BROKEN)) return false;
    errno = fault == Fault::NO_SPACE ? ENOSPC : EIO;
    return true;
}

/// Length of what a call moves that takes only half.
bool halves(std::size_t count) { return fault == Fault::SHORT && calls + 1 == fails_at && count > 1; }

ssize_t read_some(int handle, void* bytes, std::size_t count)
{
    if (halves(count)) {
        ++calls;
        return system.read(handle, bytes, count / 2);
    }
    return fails() ? -1 : system.read(handle, bytes, count);
}

ssize_t write_some(int handle, const void* bytes, std::size_t count)
{
    if (halves(count)) {
        ++calls;
        return system.write(handle, bytes, count / 2);
    }
    // The moment of the end lies in the middle of the write: half of it is there.
    if (fault == Fault::ENDS && calls + 1 == fails_at && system.write(handle, bytes, count / 2) < 0) return -1;
    return fails() ? -1 : system.write(handle, bytes, count);
}

const platform::FileCalls failing = {
    [](const char* path, int flags, mode_t mode) { return fails() ? -1 : system.open(path, flags, mode); },
    read_some,
    write_some,
    [](int) { return fails() ? -1 : 0; },
    [](int) { return fails() ? -1 : 0; },
    [](int handle) {
        const bool failed = fails();
        return system.close(handle) != 0 || failed ? -1 : 0; // the handle goes in any case
    },
    [](const char* from, const char* to) { return fails() ? -1 : system.rename(from, to); },
    [](const char* path) { return fails() ? -1 : system.remove(path); },
    [](const char* from, const char* to) { return fails() ? -1 : system.link(from, to); },
    [](const char* path, mode_t mode) { return fails() ? -1 : system.make_folder(path, mode); },
};

} // namespace

FaultPoints sampled_points(Fault which)
{
    if (which == Fault::ENDS || std::getenv("KELU_ALL_FAILURES")) return {1, 1};
    return {1 + static_cast<int>(which) % 3, 3};
}

FailingCalls::FailingCalls(Fault which, int at)
{
    fault = which;
    fails_at = at;
    calls = 0;
    platform::file_calls = &failing;
}

FailingCalls::~FailingCalls() { platform::file_calls = &system; }

int FailingCalls::count() { return calls; }

} // namespace kelu
