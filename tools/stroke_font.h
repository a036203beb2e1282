// SPDX-License-Identifier: MIT
// A font of strokes: letters as lines and arcs of a round pen, in a text that people edit, and their outlines.
//
//   pen W             width of the pen; all measures are in steps of a grid
//   line UP DOWN      what a line of text reaches over and under the baseline
//   gap N             between two letters, beside the pen's own half widths
//   glyph NAME W      a character, or its code behind '#', 0 for the sign of a missing one; its width from the middle
//                     of its first stroke to that of its last. Its strokes follow:
//   line X Y X Y ...  straight from point to point
//   arc X Y RX RY A B part of an ellipse round (X, Y), from angle A to B in degrees, against the clock from the right
//   dot X Y           a dot, a little wider than the pen
#pragma once

#include "true_type.h"

namespace kelu::tools {

/// Reads the text and draws its outlines. A mistake ends the tool with the file, the line and what is wrong.
OutlineFont read_stroke_font(const std::string& file, const std::string& family);

} // namespace kelu::tools
