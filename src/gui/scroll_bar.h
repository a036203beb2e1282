// SPDX-License-Identifier: MIT
// Scroll bars and sliders: where arrows, rail and knob are, and how pointer and wheel move the value.
//
// The geometry is computed on the main thread, by builds and the renderer; the logic tick reads it. A bar whose cross
// position is 0 is not built yet: it is neither hit nor dragged before the next frame.
#pragma once

namespace kelu {

/// Gives a bar the pictures of the GUI sheet, by `scroll_horizontal`.
void gui_set_scroll_look(int slot);
/// Computes the places of the two arrows, `arrow_box`.
void place_arrows(int slot);
/// Computes `knob_pos`: the knob's place at each step, and its place on the other axis.
void build_knob_table(int slot);
/// Marks the tables of `count` slots from `first` on as not built: after a window has moved.
void forget_knob_tables(int first, int count);
/// The knob's step for the present value, 0 to `scroll_steps` - 1.
int knob_index(int slot);

/// One logic pass of a live slot with a bar: wheel, binding, press and drag. `buttons` is 0, 1 (primary) or 2
/// (secondary), `wheel` the wheel's direction since the last pass: above 0 away from the user. Timer thread.
void scroll_bar_pass(int slot, int buttons, int wheel);
/// Repeats the step of a held arrow: first after 21 passes, then every 7. Timer thread.
void repeat_held_arrow();

} // namespace kelu
