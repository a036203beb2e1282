// SPDX-License-Identifier: MIT
// The floating cel: its preview on the overlay, and its way into the frame through the current ink.
#pragma once

#include "draw/cel.h"

namespace kelu {

/// Draws the cel at its place on the overlay, which it clears, and notes the preview's box and whether the cel is in
/// view. run_frame calls it while a cel operation runs. Reads the frame's snapshot.
void draw_cel_preview();

/// Draws what a grab shows on the overlay, which it clears: a cross while its first corner is to come, then a dashed
/// rectangle. run_frame calls it while a grab runs.
void draw_grab_marker();

/// Puts the cel at its place into the frame with the current ink, in the way of `mode`. Clears the overlay.
void commit_cel(int mode);

/// Box of a stretched cel, in the coordinates of the two corners.
struct StretchBox {
    int x, y, w, h;
};
/// The box between the corners of `cel_place`, frame pixels.
StretchBox stretch_box();

/// Where the size is beside the pointer, as offsets of a text from the overlay's corner.
struct LabelPlace {
    int x, y;
};
/// The place of a label of `w` pixels for the pointer at (mouse_x, mouse_y) and the cel's fixed corner at (x, y), all
/// in view coordinates: away from the corner, and inside the screen.
LabelPlace stretch_label_place(int x, int y, int mouse_x, int mouse_y, int w);

} // namespace kelu
