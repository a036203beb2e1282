// SPDX-License-Identifier: MIT
// Files that the user has handed to the program from outside: on the command line, or dropped on its window.
#pragma once

#include <string>
#include <vector>

namespace kelu {

/// Main thread. Writers: program, screens.
struct OpenedFiles {
    std::vector<std::string> waiting; ///< absolute paths; the drawing menu opens them at its next pass
};
inline OpenedFiles opened_files;

} // namespace kelu
