// SPDX-License-Identifier: MIT
// The small files that follow the work while it is done: the state, the user's settings, the cel, the custom tip.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"
#include <chrono>
#include <string>
#include <vector>

namespace kelu {

/// Between two looks, so that what has changed is on the disk within five seconds.
constexpr std::chrono::milliseconds files_time{3500};

/// A file as it is to be written, by any thread.
struct RunningFile {
    std::string name; ///< absolute
    Bytes bytes;      ///< what it is to hold, or
    Bitmap picture;   ///< the picture that it is to hold as a BMP
};

/// Those whose content in memory is another than at the last look. Main thread.
std::vector<RunningFile> changed_running_files();
/// Takes what memory holds for what is on the disk.
void remember_running_files();
/// What is on the disk is unsure: the next look finds all of them changed.
void forget_running_files();

/// Writes the file. False when that failed; the old file is then as it was. Any thread.
bool write_running_file(const RunningFile& file);

} // namespace kelu
