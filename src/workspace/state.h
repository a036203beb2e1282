// SPDX-License-Identifier: MIT
// The state of a workspace: everything that belongs to it and is not pixels, in WORKSPACE/current.spa.
#pragma once

#include "workspace/tags.h"
#include <span>
#include <string>

namespace kelu {

/// The tags of a state file, in the order of writing.
std::span<const TagRow> state_tags();

/// Writes the state to `file_name` in the store, and unless `spa_only` the current frame and the containers of cel,
/// custom tip and thumbnails beside it. The process ends up in the program's folder. What can't be written is reported
/// by log and status line, the old file stays, and the result is false.
bool write_workspace_state(const std::string& file_name, bool spa_only);

/// The bytes of the state's file as memory has it now.
Bytes workspace_state_bytes();
/// Writes the state alone to a file of the working directory; false when that failed.
bool write_state_file(const std::string& name);

/// Reads a state and what belongs to it: the current frame, the containers and the font. The working directory must be
/// the store's, and is again at the end. Returns 1 when there was a state, 0 when the workspace has no state file; then
/// only the fields that a fresh start sets have changed. A file that can't be read whole is kept beside.
int read_workspace_state(const std::string& file_name);

/// Loads the containers of cel, custom tip and thumbnails; those that are missing or can't be read are made anew. The
/// working directory must be the store's.
void load_containers();

/// What follows from a state that has been read: derived values of inks and tip, the animation list, the onion skin.
void refresh_derived_state();

} // namespace kelu
