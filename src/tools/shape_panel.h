// SPDX-License-Identifier: MIT
// The panel of a shape tool: sliders over the canvas, OKAY and CANCEL, and a shape that can be dragged meanwhile.
#pragma once

#include "draw/point_list.h"
#include "gui/build.h"

namespace kelu {

/// Slots that every panel has; its own follow.
enum ShapePanelSlot : int { PANEL_OKAY = 2, PANEL_CANCEL = 3, PANEL_OWN = 4 };

/// The two buttons at the foot of a window of w x h pixels.
constexpr SlotRow panel_okay_row(int h) { return push_row(PANEL_OKAY, 2, h - 10, standard_button_w, TEXT_OKAY); }
constexpr SlotRow panel_cancel_row(int w, int h)
{
    return push_row(PANEL_CANCEL, w - 1 - standard_button_w, h - 10, standard_button_w, TEXT_CANCEL);
}
/// A slider from `min` to `max`, both included, whose knob has `steps` places.
constexpr SlotRow panel_slider_row(int slot, int x, int y, int w, int min, int max, int steps, int wheel = 10)
{
    return SlotRow{slot, x, y, w, KIND_PANEL}.with(
        ScrollBar{.steps = steps, .wheel = wheel, .min = min, .max = max + 1, .horizontal = true});
}

/// Sets a slider, held within its range, and lets it show its value.
void set_panel_slider(int slot, int value);

/// What a panel does as it runs.
struct ShapePanelWork {
    void (*read)();   ///< once a pass, before the frame: from the sliders to the shape
    Point (*mouse)(); ///< the pointer in the coordinates of the shape's box
    bool (*drag)();   ///< after a click inside the box
};

/// Runs the loop of a panel that is built: until OKAY, true, or CANCEL or the program's end, false. A right click on
/// the canvas hides or shows the panel.
bool run_shape_panel(const ShapePanelWork& work);
/// Clears the panel and brings the drawing menu back.
void close_shape_panel();

/// Moves node 0 with the mouse until a click: the left button leaves it there, false; the right one puts it back,
/// true.
bool drag_anchor();

} // namespace kelu
