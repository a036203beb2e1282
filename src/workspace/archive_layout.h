// SPDX-License-Identifier: MIT
// What an archive is made of, read from any source of bytes.
#pragma once

#include "platform/files.h"
#include <cstdint>
#include <string>
#include <string_view>

namespace kelu {

constexpr std::string_view archive_magic = "kWSP";
constexpr const char* archive_containers[] = {"cel", "nal", "tip", "spa"}; ///< behind the frames, in this order

/// What is before the blocks.
struct ArchiveHead {
    std::string title, notes;
    int frames = 0;
    long blocks_at = 0; ///< offset of the first block's length
};

/// Walks the whole archive and goes back to its first block: true when every block is there and the end comes exactly
/// behind the last.
bool walk_archive(platform::ByteSource& archive, ArchiveHead& head);

/// Reads the length of the block that comes next; 0 when it isn't there.
uint32_t next_block_length(platform::ByteSource& archive);

} // namespace kelu
