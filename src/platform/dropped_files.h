// SPDX-License-Identifier: MIT
// Files that another program drops on the window.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelu::platform {

/// The paths of a list of URIs, one a line, that stand for files of this machine; lines of other kinds are left out.
std::vector<std::string> files_of_uri_list(std::string_view list);

/// Hands files to the main thread. Any thread.
void add_dropped_files(std::vector<std::string> files);
/// The absolute paths dropped since the last call. Main thread; costs next to nothing while there are none.
std::vector<std::string> take_dropped_files();

} // namespace kelu::platform
