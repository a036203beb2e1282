// SPDX-License-Identifier: MIT
// Breaking a help page into lines.
#include "gui/help_layout.h"

#include <algorithm>

namespace kelu {
namespace {

constexpr std::size_t code_length = 4; // "|c" and two digits

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool starts_code(std::string_view text)
{
    return text.size() >= code_length && text[0] == '|' && text[1] == 'c' && is_digit(text[2]) && is_digit(text[3]);
}

/// Characters of a word that show.
int shown_length(std::string_view word)
{
    int length = 0;
    while (!word.empty()) {
        const bool code = starts_code(word);
        word.remove_prefix(code ? code_length : 1);
        length += code ? 0 : 1;
    }
    return length;
}

} // namespace

bool HelpWalk::next(HelpWord& word)
{
    while (!rest_.empty()) {
        const std::size_t end = std::min(rest_.find(' '), rest_.size());
        std::string_view text = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        if (!text.empty() && text[0] == '|' && !starts_code(text)) {
            ++line_;
            column_ = 0;
            const bool two_bars = text.size() > 1 && text[1] == '|' && !starts_code(text.substr(1));
            text.remove_prefix(two_bars ? 2 : 1);
        }
        if (text.empty()) continue;
        const int length = shown_length(text);
        if (column_ > 0 && column_ + length > help_columns) {
            ++line_;
            column_ = 0;
        }
        word = {text, column_, line_};
        column_ += length > 0 ? length + 1 : 0;
        return true;
    }
    return false;
}

int help_line_count(std::string_view page)
{
    HelpWalk walk(page);
    HelpWord word;
    while (walk.next(word)) {}
    return walk.lines();
}

} // namespace kelu
