// SPDX-License-Identifier: MIT
// The calls of the system that read and write the user's files, in one table.
//
// Everything that opens, writes, flushes, renames or removes a file of the user goes through it, so that a disk that
// is full, a call that fails and a process that ends between two calls can be had at will.
#pragma once

#include <cstddef>
#include <string>
#include <sys/types.h>

namespace kelu::platform {

/// Each call works, and fails with `errno`, as the system's call of that name.
struct FileCalls {
    int (*open)(const char* path, int flags, mode_t mode);
    ssize_t (*read)(int handle, void* bytes, std::size_t count);
    ssize_t (*write)(int handle, const void* bytes, std::size_t count);
    int (*flush)(int handle);     ///< to disk
    int (*flush_all)(int handle); ///< everything that was written to the file system that the handle is of
    int (*close)(int handle);
    int (*rename)(const char* from, const char* to);
    int (*remove)(const char* path);
    int (*link)(const char* from, const char* to); ///< a second name for the same file
    int (*make_folder)(const char* path, mode_t mode);
};

/// The system's own calls.
extern const FileCalls system_file_calls;

/// The table in use; only a trial of failures sets another.
inline const FileCalls* file_calls = &system_file_calls;

/// Notes why a call has failed, from `errno`. Returns false. This and the three that follow go by thread.
bool note_failure();
/// The error number of the last call on a file that has failed; 0 when none has since `forget_failure`.
int last_failure();
/// So that `last_failure` is that of a call that follows.
void forget_failure();
/// Why the last call on a file has failed, in words for the user: "NO SPACE LEFT", "NO PERMISSION" ...
const char* failure_reason();
/// The same words for an error number.
const char* reason_of(int error);

} // namespace kelu::platform
