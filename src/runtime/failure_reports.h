// SPDX-License-Identifier: MIT
// Failures that the program survives, on their way to the user: whoever reads or writes files reports them, and the
// home screen opens a dialog for each.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelu {

/// What the user reads, for the letters of the screen's fonts.
struct FailureReport {
    std::string what;  ///< a sentence: "THE FRAME COULDN'T BE SAVED!"
    std::string where; ///< file or folder
    std::string why;   ///< "NO SPACE LEFT"
    bool operator==(const FailureReport&) const = default;
};

/// Reports a failure; one that waits already isn't added twice. `error` is an error number of the system. Any thread. A
/// writer that tries again by itself reports the first failure of a row alone.
void report_failure(std::string_view what, std::string_view where, int error);
/// The same where it isn't the system that gives the reason.
void report_failure(std::string_view what, std::string_view where, std::string_view why);

/// The oldest report that waits, taken out of the row; empty when none does. Any thread.
std::optional<FailureReport> take_failure_report();

} // namespace kelu
