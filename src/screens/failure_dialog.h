// SPDX-License-Identifier: MIT
// The dialogs of failures that the program survives: what, where and why.
#pragma once

#include "runtime/failure_reports.h"

namespace kelu {

/// Tells over the open window, if there is one, of repairs and of every failure that has been reported, one dialog
/// each. Returns at once when there is nothing to tell. Slots 120 to 127 are the dialog's; those of the menu stay as
/// they are.
void tell_of_failures();

/// What is to become of work that couldn't be written when the user leaves.
enum class LeaveAnswer { TRY_AGAIN, LEAVE, STAY };

/// Asks so over the drawing menu. STAY also when the program is asked to end meanwhile.
LeaveAnswer ask_about_unwritten(const FailureReport& report);

} // namespace kelu
