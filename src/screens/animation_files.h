// SPDX-License-Identifier: MIT
// Animations between the frames and files: GIF, animated PNG, and all pictures side by side on a sheet.
#pragma once

#include <string>

namespace kelu {

/// Saves the tagged frames, in their order and with their times, to a file of the working directory, which replaces an
/// old one only when it is whole. ".GIF" is an animation, ".PNG" one or a sheet, as the user says. The status bar says
/// what was written, or why not. False: nothing was.
bool save_animation_file(const std::string& name);

/// Adds the pictures of a file of the working directory behind the last frame, tagged and with their times. A still
/// picture is cut into the cells of the grid, if that is on. All of them or none; the status bar says which.
bool load_animation_file(const std::string& name);

/// Opens the file browser for one of the two. The caller clears its slots before and builds its menu after.
void save_animation();
void load_animation();

} // namespace kelu
