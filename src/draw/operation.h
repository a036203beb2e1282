// One undoable operation: from a tool's geometry to stamps, from a stamp to the ink.
//
// `draw_to_frame` takes the snapshot, clears the coverage and runs the geometry of the tool; `stamp_tip` puts the
// brush tip on one point; the ink's loop over the tip is chosen once for an operation. All in frame pixels, main
// thread only.
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
    /// stroke must not begin where the hand is by then.
    int pointer_x = 0, pointer_y = 0;
};
using StrokeRender = void (*)(const Stroke& stroke);

/// Where a stroke that follows the mouse was last, in frame pixels. Reset by the drawing menu at every pass.
struct StrokePosition {
    int stroke_last_x = -1; ///< -1: before the first stamp
    int stroke_last_y = -1;
};
inline StrokePosition stroke_position;

/// Runs one operation of tool `brush` with ink `ink` and tip `style` (-1 to 99) at frame pixel (x, y). Arguments out
/// of range log a line and leave the frame as it is; a position outside the frame does nothing and takes no snapshot.
void draw_to_frame(int x, int y, int brush, int ink, int style);

/// Puts the tip on a point. Outside the frame it does nothing, even where the tip would reach in.
void stamp_tip(int x, int y, int brush, int ink, int style);

/// Callback for Allegro's do_line and do_circle: a stamp with the current tool, ink and tip; then a frame when one is
/// due. Ignores its first and last argument.
void line_stamp(BITMAP* bitmap, int x, int y, int d);

/// The display test of long operations: runs a frame when more than `pending` world ticks have passed since the last.
void keep_picture_alive(int pending = 0);

/// The stroke of "DRAW": follows the mouse until the left button is up.
void render_draw(const Stroke& stroke);

} // namespace kelu
