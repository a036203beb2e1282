// SPDX-License-Identifier: MIT
// Files from outside on their way into the workspace.
#pragma once

namespace kelu {

/// Opens the files that wait, those dropped on the window among them: a picture becomes a new frame behind the last
/// one, and the first of them the current frame; a workspace takes the place of the present one when the user agrees.
/// What can't be opened is named in the status line. Over the drawing menu, between two of its passes.
void open_waiting_files();

} // namespace kelu
