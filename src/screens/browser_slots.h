// SPDX-License-Identifier: MIT
// The window of the file browser: its slots and what they show.
#pragma once

#include <string>

namespace kelu {

/// What the browser is opened for.
enum BrowserTask : int { BROWSER_LOAD, BROWSER_SAVE, BROWSER_FONT };

enum BrowserSlot : int {
    BROWSER_TITLE = 1,
    BROWSER_FILTER_0 = 2,
    BROWSER_PATH = 11,
    BROWSER_FILE = 12,
    BROWSER_LIST = 13,
    BROWSER_PREVIEW = 14,
    BROWSER_OKAY = 15,
    BROWSER_CANCEL = 16,
    BROWSER_DRIVE_0 = 17,
    BROWSER_HOME = 37,
    BROWSER_LOCAL = 38, ///< this and the next of the font browser alone
    BROWSER_OS = 39
};

constexpr int browser_filters = 9; ///< `filter` of the formats' rows
constexpr int browser_drives = 17; ///< drives that have a button

/// Writes the slots; `task` is one of BrowserTask.
void build_file_browser(int task);

/// Lights the button of the drive that holds the working directory, of several the one with the longest root.
void show_current_drive();

/// The folder of the drive whose button is in a slot.
const std::string& drive_root_of(int slot);

/// The button HOME sets a home folder, or FLOAT clears the one that is set.
void show_home_button(bool is_set);

/// Lights one filter at most: puts all out but that of `slot`.
void keep_filter(int slot);

/// The pattern of the lit filter, or the one that all files match.
std::string lit_pattern();

} // namespace kelu
