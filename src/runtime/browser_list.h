// SPDX-License-Identifier: MIT
// The listing of the file browser.
#pragma once

#include <array>
#include <string>

namespace kelu {

constexpr int browser_list_rows = 1024;
constexpr int browser_name_bytes = 128;

/// Names are upper case and zero-terminated; a folder's begins with a backslash. Owner: the file browser.
/// Writers: screens.
struct BrowserList {
    std::array<std::array<char, browser_name_bytes>, browser_list_rows> browser_list{};
    std::array<int, browser_list_rows> browser_isdir{};     ///< 1: a folder
    std::array<std::string, browser_list_rows> true_name{}; ///< the entry on disk that the row stands for
    int browser_count = 0;                                  ///< rows in use
    int selected_row = -1; ///< row of `browser_file`, which several rows may look like; -1: any of them
};
inline BrowserList browser_listing;

} // namespace kelu
