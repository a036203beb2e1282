// SPDX-License-Identifier: MIT
// The lines of a text that people edit, for the readers of assets.
#pragma once

#include <fstream>
#include <optional>
#include <string>

namespace kelu::tools {

/// The lines of a file that say something, one at a time, and the complaint about the present line. ';' starts a
/// comment.
class Lines {
public:
    /// Ends the tool when the file can't be read.
    explicit Lines(const std::string& file);
    /// The next line without its comment and without blanks at its end; nothing at the end of the file.
    std::optional<std::string> next();
    /// The next line, which has to be there.
    std::string need();
    /// Ends the tool with the file, the line and what is wrong.
    [[noreturn]] void fail(const std::string& what) const;

private:
    std::string name_;
    std::ifstream in_;
    int number_ = 0;
};

/// Code of a glyph's name, which is the character itself, or '#' and the code: `lowest` to 126.
int glyph_code(const Lines& lines, const std::string& name, int lowest = 1);

} // namespace kelu::tools
