// SPDX-License-Identifier: MIT
// Running a tool's operation on the frame: undo, coverage, and the geometry of the tool's row.
#pragma once

namespace kelu {

/// Runs one operation of tool `brush` with ink `ink` and tip `style` (-1 to 99) at frame pixel (x, y). Arguments out
/// of range log a line and leave the frame as it is; a position outside the frame does nothing and takes no snapshot.
void draw_to_frame(int x, int y, int brush, int ink, int style);

/// Closes the gathered outline by its first point, if it has one, and runs the present tool's operation on it.
void draw_closed_outline();

/// The progress of a long operation: a frame without the tools' previews.
void show_waiting_frame();

} // namespace kelu
