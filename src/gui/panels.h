// SPDX-License-Identifier: MIT
// What all painters of slots share: the canvas, panels and boxes, centred labels. Main thread.
#pragma once

#include "base/bitmap.h"

namespace kelu {

constexpr int random_border = -1; ///< border that is another grey in each frame

/// The bitmap that the slots are being drawn into: the back buffer, or a copy behind a pop-up. Set by gui_render.
inline BITMAP* gui_canvas = nullptr;

/// Filled rectangle of the canvas from (x1, y1) to (x2, y2), both included; nothing when it is empty.
void fill_area(int x1, int y1, int x2, int y2, int colour);
/// One pixel of the canvas, if it lies there.
void put_dot(int x, int y, int colour);
/// The crawling dashes of everything that is being moved or measured: a rectangle with these corners.
void draw_dashed_rect(int x1, int y1, int x2, int y2);
/// The dashes round a slot.
void draw_slot_dashes(int slot);

/// The standard button: a fill and a border with clipped corners. Opacity 254 is solid. A `border` of -1 is a random
/// grey, which is returned; else 0. The border of a window that is being moved is dashed.
int draw_panel(int slot, int fill, int border, int opacity);
/// The panel in the slot's own colour and the scheme's border.
void draw_own_panel(int slot);
/// The border of a panel alone.
void draw_border(int slot, int colour);
/// The square ground of a menu, with stripes where `stripes` is set. Its border takes the column x + w and the row
/// y + h.
void draw_box(int slot, int fill, int border, int opacity);
/// The four inner corners of the slot's rectangle at (x, y), which kinds that paint over their inside put back. Colour
/// -1 is a random grey.
void draw_corner_dots(int slot, int x, int y, int colour);

/// True when the pointer, as this frame shows it, is on the slot.
bool look_hovered(int slot);
/// A label in the wide font, in the middle of the slot's width; in the narrow one where it would touch the slot's
/// frame. Colour codes in it count as characters.
void draw_centred(int slot, const char* text, int colour_set, int opacity = 0);
/// The ground of a label that `draw_centred` is to draw.
void draw_plate(int slot, const char* text, int colour);
/// A label at the slot's left.
void draw_at_left(int slot, const char* text, int colour_set);
/// Characters one by one, 6 pixels apart, so that nothing in them is a colour code: at most `count`, from (x, y).
void draw_characters(int x, int y, const char* text, int count, int colour_set);

} // namespace kelu
