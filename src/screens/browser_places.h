// SPDX-License-Identifier: MIT
// How the file browser goes from place to place: path field, drives, fonts, home.
#pragma once

#include <string>

namespace kelu {

/// The folder in which the browser opens for a task; empty: none is set.
std::string& home_dir(int task);

/// Reads the path field and the buttons of places. A path that can't be entered stays in the field to be mended; where
/// only its last part is missing the user may have that folder made. True when the listing has to be renewed.
bool read_places(int task);

/// Before a file is taken: goes to the folder that the path field says, if it isn't the present one. False when that
/// can't be.
bool settle_path();

/// The path field shows the present folder.
void show_present_folder();

/// Reads HOME or FLOAT: the present folder becomes the home, or there is none any more.
void read_home(int task);

/// The folder and the file of the font browser in the place of the picture browser's, for the time of a block.
class FontPlace {
public:
    FontPlace();
    ~FontPlace();
    FontPlace(const FontPlace&) = delete;
    FontPlace& operator=(const FontPlace&) = delete;
    /// The present place is where the font is.
    static void keep();

private:
    std::string folder_, browser_dir_, browser_file_;
};

} // namespace kelu
