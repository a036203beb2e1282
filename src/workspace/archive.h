// SPDX-License-Identifier: MIT
// A whole workspace in one file, by custom with the extension .WSP: for transport or keeping.
//
// "kWSP", title and notes with a length byte each, the number of frames, and then as blocks of a length word and that
// many bytes the files of the frames, cel, thumbnails, custom tip and state. Numbers are big-endian.
#pragma once

#include "platform/files.h"
#include <cstdint>
#include <span>
#include <string>

namespace kelu {

/// Shows how far an archive has come: one frame of the program, given by the caller.
using ShowProgress = void (*)();

/// Commits the open frame and the state, and packs the workspace into a file of the working directory. What fails is
/// reported by log and status line, and an old file of that name stays. The working directory is the same afterwards.
/// Returns 0.
int save_workspace_archive(const std::string& file_name, ShowProgress show_progress);

/// Replaces the workspace by that of an archive, all of it or nothing. One that is missing, short or wrong in any way,
/// down to a picture that can't be decoded, is refused with a line in the log and the reason in the status line, and -1
/// is the result; so is one that can't be read or written whole, which is reported. Returns 0 when the state has been
/// read.
int load_workspace_archive(const std::string& file_name, ShowProgress show_progress);

/// Appends the block of a file of the working directory, through the buffer. False, and a line in the log, when the
/// file can't be read or the archive can't be written.
bool copy_file_to_archive(const std::string& file_name, platform::FileReplacement& archive, std::span<uint8_t> buffer);

/// Writes the next `length` bytes of the archive as a file of the working directory, through the buffer. Returns 0; or
/// -1, and a line in the log, when the file can't be written; its old form is then as it was. The caller flushes.
int extract_block(platform::FileSource& archive, const std::string& file_name, std::span<uint8_t> buffer,
                  uint32_t length);

} // namespace kelu
