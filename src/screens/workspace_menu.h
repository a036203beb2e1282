// SPDX-License-Identifier: MIT
// Workspace management: title and notes, and the workspace as a whole into a file, out of one, or anew.
#pragma once

namespace kelu {

/// Runs the screen; the drawing menu is open at the end.
void workspace_menu();

} // namespace kelu
