// SPDX-License-Identifier: MIT
// The four columns of the drawing menu: FRAME, PIC, CEL and USER.
#pragma once

namespace kelu {

enum class ActivityColumn { FRAME, PIC, CEL, USER };

/// Opens a column beside the drawing menu's button in `slot`, runs the entry that is clicked, and comes back to the
/// drawing menu.
void activity_menu(ActivityColumn which, int slot);

} // namespace kelu
