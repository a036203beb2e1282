// SPDX-License-Identifier: MIT
// The row of reports that wait for the user.
#include "runtime/failure_reports.h"

#include "platform/file_calls.h"
#include <algorithm>
#include <deque>
#include <mutex>

namespace kelu {
namespace {

constexpr std::size_t most_reports = 16; ///< a broken disk fails everything: more than this says nothing new

/// Owner: this file. Any thread, under its lock.
struct Reports {
    std::mutex lock;
    std::deque<FailureReport> waiting;
};
Reports reports;

} // namespace

void report_failure(std::string_view what, std::string_view where, int error)
{
    report_failure(what, where, platform::reason_of(error));
}

void report_failure(std::string_view what, std::string_view where, std::string_view why)
{
    FailureReport report{std::string(what), std::string(where), std::string(why)};
    const std::lock_guard guard(reports.lock);
    const bool known = std::ranges::find(reports.waiting, report) != reports.waiting.end();
    if (!known && reports.waiting.size() < most_reports) reports.waiting.push_back(std::move(report));
}

std::optional<FailureReport> take_failure_report()
{
    const std::lock_guard guard(reports.lock);
    if (reports.waiting.empty()) return std::nullopt;
    FailureReport report = std::move(reports.waiting.front());
    reports.waiting.pop_front();
    return report;
}

} // namespace kelu
