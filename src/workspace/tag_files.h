// SPDX-License-Identifier: MIT
// Tagged files on disk: written beside and renamed, and kept beside when they can't be read whole.
#pragma once

#include "workspace/tags.h"
#include <span>
#include <string>

namespace kelu {

enum class TagFile { MISSING, READ };

/// Reads a file of the working directory into the variables of its rows. A file that can't be opened or is absurdly
/// large is moved to `damaged_name` and counts as missing; of one that holds anything that is no known record a copy is
/// kept there, so that the next write loses nothing. `text` is the row of the strings that reports one that can't be
/// opened.
TagFile read_tag_file(const std::string& name, const std::string& damaged_name, std::span<const TagRow> rows, int text);

/// Writes the file. False when that failed, and the old file stays.
bool write_tag_file(const std::string& name, std::span<const TagRow> rows);

} // namespace kelu
