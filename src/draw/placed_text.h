// SPDX-License-Identifier: MIT
// The text that hangs over the frame while the text tool runs: its picture, its preview, and its way into the frame.
#pragma once

#include "draw/point_list.h"
#include "imagefile/vector_font.h"

namespace kelu {

constexpr int text_margin = 10; ///< pixels of the text's picture round the text, on all sides

/// Owner: the text tool. Main thread. Node 0 of the tools is the frame pixel of the picture's top left corner.
/// Writers: tools.
struct PlacedText {
    Bitmap text_memory; ///< what `text_bitmap` is a part of, with room for the next letters
    Bitmap text_bitmap; ///< white on black, the more white the more ink
    Bounds text_box;    ///< of what isn't black, in the picture's pixels
    int shown = 0;      ///< 1: the preview is drawn; 0 while there is no text
};
inline PlacedText placed_text;

/// Draws a text as the new picture, with soft edges or hard ones. A text that is wider than a bitmap can be loses its
/// end, with a line in the log.
void render_placed_text(VectorFont& font, const char* text, bool soft);
/// True when a frame pixel lies strictly inside the text's box.
bool placed_text_holds(Point frame_pixel);
/// Draws the text onto an overlay in the brush colour, without the ink; `origin` is the frame pixel at its corner.
void draw_placed_text(BITMAP* overlay, Point origin);
/// Puts the text on the frame in the brush colour, through the current ink. One undo step.
void ink_placed_text();

} // namespace kelu
