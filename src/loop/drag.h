// SPDX-License-Identifier: MIT
// Moving a window by its label: it follows the pointer until the next click.
#pragma once

namespace kelu {

/// Moves the window that starts at slot `first`, by the pixel (dx, dy) of it that the pointer holds, until a button is
/// pressed and up again; then notes its place in row `row` of `window_pos`. A loop: runs frames. Main thread.
void gui_drag_window(int row, int dx, int dy, int first);
/// Makes the job queue serve JOB_DRAG_WINDOW. Called once at start.
void install_drag_job();

} // namespace kelu
