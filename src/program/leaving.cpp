// SPDX-License-Identifier: MIT
// Writing the work at the end.
#include "program/leaving.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/undo.h"
#include "loop/home_strip.h"
#include "platform/ending.h"
#include "platform/files.h"
#include "runtime/failure_reports.h"
#include "screens/failure_dialog.h"
#include "screens/frame_loan.h"
#include "workspace/settings.h"
#include "workspace/state.h"
#include <cstdio>

namespace kelu {
namespace {

constexpr const char* state_file = "current.spa";

/// A signal and a display that has gone leave nobody who could answer.
bool nobody_to_ask() { return platform::asked_from_outside(); }

void lock_processes(bool locked)
{
    run_state.timers_locked = locked ? 1 : 0;
    run_state.gui_clicks_enabled = locked ? 0 : 1;
    run_state.gui_active = locked ? 0 : 1;
}

bool write_work()
{
    log_line("[ END ] : User has opted to exit the program.");
    log_line("[ END ] : Switching off handlers and locking processes.");
    lock_processes(true);
    log_line("[ END ] : Writing workspace to file.");
    end_frame_loan();
    platform::change_directory(run_state.current_dir); // the state keeps the folder that the user was in
    bool written = write_workspace_state(state_file, false);
    log_line("[ END ] : Writing user settings to file.");
    written = write_user_settings() && written;
    return written;
}

/// What hasn't been reported to the user yet when the window goes.
void tell_the_rest()
{
    while (const auto report = take_failure_report())
        std::fprintf(stderr, "%s %s: %s\n", report->what.c_str(), report->where.c_str(), report->why.c_str());
}

Leaving end_with(bool written)
{
    tell_the_rest();
    return written ? Leaving::WRITTEN : Leaving::UNWRITTEN;
}

/// Asks about the first thing that wasn't written; stderr lists all when the answer is to leave.
LeaveAnswer ask_user()
{
    const FailureReport report = take_failure_report().value_or(FailureReport{});
    lock_processes(false);
    run_state.exit_requested = 0;
    run_state.close_button_pressed = 0;
    run_state.end_now = nobody_to_ask() ? 1 : 0;
    build_draw_menu();
    const LeaveAnswer answer = ask_about_unwritten(report);
    if (answer == LeaveAnswer::LEAVE || nobody_to_ask()) report_failure(report.what, report.where, report.why);
    if (answer == LeaveAnswer::TRY_AGAIN)
        while (take_failure_report()) {}
    return answer;
}

} // namespace

Leaving leave_program()
{
    while (!write_work()) {
        if (nobody_to_ask()) return end_with(false);
        const LeaveAnswer answer = ask_user();
        if (answer == LeaveAnswer::LEAVE) return end_with(false);
        if (answer == LeaveAnswer::STAY && !nobody_to_ask()) return Leaving::STAYS;
    }
    return end_with(true);
}

Leaving write_last_work()
{
    end_frame_loan();
    take_back_operation();
    return end_with(write_work());
}

} // namespace kelu
