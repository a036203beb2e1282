// SPDX-License-Identifier: MIT
// Commands that columns and keys share: each does its work over the drawing menu and leaves it built.
#pragma once

namespace kelu {

void clone_frame();
void insert_blank_frame();
void delete_current_frame();
/// The frame becomes the mask colour; one undo step.
void clear_picture();
/// Back to the picture as it was fetched; one undo step.
void restore_picture();
/// Asks whether to end the program.
void ask_exit();
/// Flips the menu that is in slot 0.
void flip_menu();
/// The brush or mask colour becomes the one on the screen under the pointer.
void pick_brush_color();
void pick_mask_color();
/// Next or previous frame, repeated while the key is held.
void next_frame();
void previous_frame();
void first_frame();
void last_frame();
/// Valid settings first, then on or off, with a message.
void flip_grid();
void flip_alpha();
void flip_onion();
void pan_up();
void pan_down();
void pan_left();
void pan_right();
void zoom_in();
void zoom_out();
/// The brush tool menu, or the ink menu, on the selected slot.
void choose_tool();
void choose_ink();
/// The colour menu on the brush colour or on the mask colour.
void choose_brush_color();
void choose_mask_color();

/// Runs an operation with the drawing menu gone, and brings it back.
void run_over_draw_menu(void (*operation)());
/// The same as a command of its own.
template <void (*operation)()>
void over_draw_menu()
{
    run_over_draw_menu(operation);
}

} // namespace kelu
