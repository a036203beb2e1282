// SPDX-License-Identifier: MIT
// What the user has written behind the program's name.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace kelu {

struct CommandLine {
    int exit_code = -1;             ///< what the program ends with once it has answered; -1: it starts
    std::string text;               ///< the answer: to stdout for exit code 0, else to stderr
    std::vector<std::string> files; ///< absolute paths of pictures and workspaces to open, in order
};

/// Reads the words of `main`, the program's name first. A name that isn't a file to read is refused, before there is a
/// window.
CommandLine read_command_line(std::span<const char* const> words);

/// Prints the answer; returns the exit code.
int answer(const CommandLine& line);

} // namespace kelu
