// SPDX-License-Identifier: MIT
// The text engine: one line of a bitmap font into any bitmap.
//
// A pen with attributes, set by `set_text` just before each `draw_text`. Text is 7-bit ASCII; "|cNN" in a string
// changes the colour set for good. Main thread only.
#pragma once

#include "base/bitmap.h"
#include "gui/text_colours.h"
#include "runtime/fonts.h"
#include <span>

namespace kelu {

constexpr int text_measure = -9000; ///< x of a `draw_text` that only measures

/// The pen. A value stays until the next call that names it.
struct TextPen {
    int text_slot = 0;          ///< font slot, 0 to 15
    int text_colour_set = 0;    ///< 0 to 98; 0: the glyphs' own colours
    int text_shadow = 0;        ///< 0 none, 1 solid, 2 tinted, 3 tinted twice
    int text_shadow_colour = 0; ///< palette index in modes 1 and 3, amount of the tint in mode 2
    int text_outline = 0;       ///< palette index, 0 none
    int text_mode = 0; ///< 0 masked, above 0 translucent, below 0 (-2, since -1 keeps the old one) tinted towards white
    int text_opacity = 0; ///< strength of `text_mode`, 0 to 255
};
inline TextPen text_pen;

/// What `set_text` sets: the words of the pen. -1 keeps the old value.
struct TextStyle {
    int slot;
    int colour_set;
    int shadow = 0;
    int shadow_colour = 0;
    int outline = 0;
    int mode = 0;
    int opacity = 0;
};

/// Sets the pen. The slot is always taken; a slot of 16 or more is refused with a line in the log.
void set_text(const TextStyle& style);
/// A pen without shadow, outline and mode.
void set_plain_text(int slot, int colour_set);
/// A pen with an outline of palette index 1.
void set_outlined_text(int slot, int colour_set);

/// Writes a string with its top left corner at (x, y) and returns its width in pixels; at x = `text_measure` it
/// draws nothing and returns the same.
int draw_text(BITMAP* bitmap, int x, int y, const char* string);
/// The width of a string with the present pen.
int text_width(const char* string);

/// Makes the font of a slot from its pictures, which it changes: black becomes magenta. All numbers in a picture are
/// palette indices, found by colour; Allegro's palette must be set. False when the first picture names no cell size.
bool load_font(int slot, std::span<BITMAP* const> pictures);
/// First index of Allegro's palette with that colour, 0 when there is none.
int palette_index(int colour);

/// Draws w x h pixels of `source` at (dx, dy), each channel (source x amount) / 256 + (colour x (256 - amount)) / 256;
/// magenta is left out. No clipping: both rectangles must lie inside.
void tint_sprite(BITMAP* source, BITMAP* target, int sx, int sy, int dx, int dy, int w, int h, int colour, int amount);

} // namespace kelu
