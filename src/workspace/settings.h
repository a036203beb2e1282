// SPDX-License-Identifier: MIT
// What belongs to the user rather than to a workspace: options, keys, buttons, colour scheme and macros, in
// resource/user.def.
#pragma once

#include "workspace/tags.h"
#include <span>

namespace kelu {

constexpr int stored_hotkeys = 64; ///< rows of the key table that the file keeps

/// The row of the key table that record `minor` (0 to 63) of the file stands for.
int hotkey_row_of(int minor);

/// The tags of the settings file, in the order of writing.
std::span<const TagRow> settings_tags();

/// Reads the settings; a missing file is noted in the log and gives the values that a first run has. The working
/// directory must be the program's folder, and is again at the end. A file that can't be read whole is kept beside.
void read_user_settings();

/// The bytes of the settings' file as memory has them now.
Bytes user_settings_bytes();

/// Writes the settings. The process ends up in the program's folder. A failure is reported by log and status line.
bool write_user_settings();

} // namespace kelu
