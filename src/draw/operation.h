// SPDX-License-Identifier: MIT
// One undoable operation: from a tool's geometry to stamps, from a stamp to the ink.
//
// `stamp_tip` puts the brush tip on one point; the ink's loop over the tip is chosen once for an operation. All in
// frame pixels, main thread only.
#pragma once

#include "base/bitmap.h"

namespace kelu {

constexpr int no_tip = -1; ///< style of a stamp: one pixel at full strength

/// A tool's geometry, run inside `draw_to_frame`: the press position in frame pixels (0, 0 for the tools that read
/// the nodes or the point list), and the ink and tip to draw with.
struct Stroke {
    int x = 0, y = 0;
    int brush = 0; ///< tool id
    int ink = 0;   ///< ink id
    int style = 0; ///< tip index, or `no_tip`
    /// The pointer in frame pixels as the operation began: of a large frame the undo copy takes its time, and the
    /// stroke must not begin where the pointer is by then.
    int pointer_x = 0, pointer_y = 0;
};
using StrokeRender = void (*)(const Stroke& stroke);

/// Where a stroke that follows the mouse was last, in frame pixels. Reset by the drawing menu at every pass.
/// Writers: tools, screens.
struct StrokePosition {
    int stroke_last_x = -1; ///< -1: before the first stamp
    int stroke_last_y = -1;
};
inline StrokePosition stroke_position;

/// Puts the tip on a point. Outside the frame it does nothing, even where the tip would reach in.
void stamp_tip(int x, int y, int brush, int ink, int style);

/// Callback for Allegro's do_line and do_circle: a stamp with the current tool, ink and tip; then a frame when one is
/// due. Ignores its first and last argument.
void line_stamp(BITMAP* bitmap, int x, int y, int d);

/// What the running operation was given. Owner: whoever begins an operation, by `OperationScope`. Main thread.
struct Operation {
    void (*show_progress)() = nullptr; ///< brings the picture on the screen up to date; null: nobody looks
};
inline Operation operation;

/// An operation from its begin to its end: long geometries show their progress by the callback meanwhile.
class OperationScope {
public:
    explicit OperationScope(void (*show_progress)()) { operation.show_progress = show_progress; }
    ~OperationScope() { operation = {}; }
    OperationScope(const OperationScope&) = delete;
    OperationScope& operator=(const OperationScope&) = delete;
};

/// True when the arguments of an operation are in range: brush and ink 0 to 99, style -1 to 99; else it logs a line.
bool operation_arguments_valid(int brush, int ink, int style);

/// The display test of long operations: shows the progress when more than `pending` world ticks have passed since the
/// last frame.
void keep_picture_alive(int pending = 0);

} // namespace kelu
