// SPDX-License-Identifier: MIT
// Our formats in Allegro's table of file types.
#pragma once

#include <cstddef>

namespace kelu {

/// Longest file that is taken for a picture, in bytes.
constexpr std::size_t max_picture_file = std::size_t{1} << 30;

/// Enters "png" and "gif" into Allegro's table of bitmap file types, and PNG as a datafile object "PNG ". Once, after
/// Allegro's start.
void register_picture_formats();

} // namespace kelu
