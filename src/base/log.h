// SPDX-License-Identifier: MIT
// The program's log, FW_log.txt: the only trace of what went wrong.
//
// A line is a bracketed prefix, " : " and text, with no time stamp, and it is flushed as soon as it is written. The
// main thread and timer callbacks both write; a line goes out in one piece.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace kelu {

/// One argument of `log_line`: a text, an integer or a double.
class LogArgument {
public:
    LogArgument(const char* text) : text_(text ? text : ""), kind_('s') {}
    LogArgument(const std::string& text) : text_(text), kind_('s') {}
    LogArgument(std::string_view text) : text_(text), kind_('s') {}
    LogArgument(long number) : number_(number), kind_('d') {}
    LogArgument(int number) : LogArgument(static_cast<long>(number)) {}
    LogArgument(unsigned number) : LogArgument(static_cast<long>(number)) {}
    LogArgument(std::size_t number) : LogArgument(static_cast<long>(number)) {}
    LogArgument(double number) : real_(number), kind_('f') {}

    /// Writes the argument as the letter 's', 'd' or 'f' asks into `out` of `room` bytes; returns the bytes written.
    std::size_t print(char letter, char* out, std::size_t room) const;

private:
    std::string_view text_;
    long number_ = 0;
    double real_ = 0;
    char kind_;
};

/// Deletes the log of the last run and opens FW_log.txt in the working directory for appending.
void log_open();
/// Closes the log. Lines that come later are dropped.
void log_close();
/// Writes one line; the form behind `log_line`.
void log_write(std::string_view format, std::span<const LogArgument> arguments);

/// Writes one line and flushes it. In the format "%s", "%d" and "%f" (or capitals) take the next argument as a text,
/// a decimal integer and a number with six decimals; "%%" is one "%"; "%" and any other character are dropped.
template <class... Arguments>
void log_line(std::string_view format, const Arguments&... arguments)
{
    if constexpr (sizeof...(arguments) == 0) {
        log_write(format, {});
    } else {
        const std::array<LogArgument, sizeof...(arguments)> list{LogArgument(arguments)...};
        log_write(format, list);
    }
}

} // namespace kelu
