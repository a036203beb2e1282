// SPDX-License-Identifier: MIT
// The layout of a help page: where its words are.
#pragma once

#include <string_view>

namespace kelu {

constexpr int help_columns = 33;     ///< characters of a line
constexpr int help_lines_shown = 31; ///< lines that the page has room for

/// A word of a page: its text with the colour codes in it, and its place in characters and lines.
struct HelpWord {
    std::string_view text;
    int column = 0, line = 0;
};

/// Walks a page word by word. Words are separated by blanks; one that begins with "|" and is no colour code ends the
/// line, and what follows the bars is on the new one. A word that would pass the last column starts a new line.
class HelpWalk {
public:
    explicit HelpWalk(std::string_view page) : rest_(page) {}
    /// The next word; false at the end of the page.
    bool next(HelpWord& word);
    /// Lines so far.
    int lines() const { return line_ + 1; }

private:
    std::string_view rest_;
    int column_ = 0, line_ = 0;
};

/// Number of lines of a page.
int help_line_count(std::string_view page);

} // namespace kelu
