// SPDX-License-Identifier: MIT
// Places where files are: drives by letter and the folders of fonts.
//
// The system has no drives. C: stands for its root, H: for the user's home, and the other letters from D: on for the
// volumes mounted below the usual folders.
#pragma once

#include <array>
#include <string>

namespace kelu::platform {

constexpr int drive_count = 26; ///< letters A to Z

/// Owner and only writer: `scan_drives`, at start.
struct Places {
    /// Folder of each drive, absolute, without a separator at its end (but for "/"); empty: there is no such drive.
    std::array<std::string, drive_count> drive_root;
};
inline Places places;

/// The user's home: $HOME, or what the system's list of users says. Absolute.
std::string home_folder();
/// Where programs keep what belongs to the user: $XDG_DATA_HOME, or .local/share in the home. It needn't exist yet.
std::string user_data_folder();
/// Where the user keeps pictures: what the desktop's list of the user's folders says, else Pictures in the home, else
/// the home itself.
std::string picture_folder();
/// Finds the drives and logs each.
void scan_drives();
/// True when drive 0 (A:) to 25 (Z:) stands for a place.
bool drive_exists(int drive);
/// The drive whose root is the longest that holds the folder, -1 when there is none.
int drive_of(const std::string& folder);
/// The folder in which the system keeps its fonts.
std::string system_font_folder();

} // namespace kelu::platform
