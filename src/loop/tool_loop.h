// SPDX-License-Identifier: MIT
// What the loops of the tools share: the snapped pointer, presses on the bare canvas, and the measurement that a tool
// shows.
#pragma once

#include "draw/point_list.h"
#include "loop/pass.h"

namespace kelu {

/// The frame pixel under the pointer.
Point frame_mouse();
/// A frame position, on the grid while that is on.
Point snapped(Point at);
/// The same, on the grid while that is on.
Point snapped_mouse();
/// The press that `sample_press` took, on the grid while that is on.
Point snapped_press();

/// Presses that begin on the bare canvas. A press that begins on a slot stays the slot's, wherever it is dragged.
class CanvasButtons {
public:
    /// To be called once a pass. True in the pass that first sees the button down, over no slot.
    bool left_pressed();
    bool right_pressed();

private:
    bool left_was_down_ = true; // whatever is down when the loop begins belongs to what came before
    bool right_was_down_ = true;
};

/// The measurement of a tool, from its making to its end: only when the option is on and the user runs none himself.
class ToolMeasure {
public:
    /// Anchored at a frame pixel; `distance`: the plain distance, else the size.
    ToolMeasure(Point anchor, bool distance);
    ~ToolMeasure();
    ToolMeasure(const ToolMeasure&) = delete;
    ToolMeasure& operator=(const ToolMeasure&) = delete;

private:
    bool started_;
};

} // namespace kelu
