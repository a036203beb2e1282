// The table of inks, and the calls through which tools, cels and text put ink on the frame.
//
// A new ink is one class in its family's file, with its instantiation there, and one row of the table.
#pragma once

#include "draw/draw_options.h"
#include "draw/tips.h"
#include "runtime/toolbox.h"

namespace kelu {

/// Which pixels of a picture are pasted.
enum class SpriteRule {
    OVER, ///< all but magenta
    BELOW ///< all, where the frame's pixel is near the mask colour
};
constexpr int below_tolerance = 5; ///< differences of up to 4 in each channel are near

/// The loops of one ink, made from its class in the file of its family.
template <class Ink>
struct InkLoops {
    static void pixel(int x, int y, int color, int tip_value);
    static void stamp(int x, int y, int color, const TipCell& tip);
    static void span(int left, int right, int y, int color);
    static void sprite(BITMAP* picture, int x, int y, SpriteRule rule);
};

/// One ink: what the menus show, and its loops.
struct InkRow : DrawChoice {
    void (*pixel)(int x, int y, int color, int tip_value);
    void (*stamp)(int x, int y, int color, const TipCell& tip);
    void (*span)(int left, int right, int y, int color);
    void (*sprite)(BITMAP* picture, int x, int y, SpriteRule rule);
};

/// The row of an ink, or null for a number that is no ink.
const InkRow* find_ink(int ink);

/// Changes one pixel of the frame. Arguments: frame pixels, ink id, colour of the ink, tip value 0 (full strength) to
/// 255. Nothing happens outside the frame.
void apply_ink(int x, int y, int ink, int color, int tip_value);

/// Stamps a tip with its centre on (x, y): all its cells that lie in the frame, row by row.
void stamp_ink(int x, int y, int ink, int color, const TipCell& tip);

/// Applies the ink at full strength from `left` to `right`, both included, in row y; clipped to the frame.
void span_ink(int left, int right, int y, int ink, int color);

/// Pastes the pixels of a picture that aren't magenta with the current ink; its top left corner at (x, y).
void ink_sprite(BITMAP* picture, int x, int y);

/// Pastes all pixels of a picture with the current ink where the frame's pixel is within 4 of the mask colour.
void ink_below(BITMAP* picture, int x, int y);

/// Puts the options of a fresh workspace into `toolbox.ink_table`.
void set_initial_ink_options();

} // namespace kelu
