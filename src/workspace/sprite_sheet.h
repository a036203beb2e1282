// SPDX-License-Identifier: MIT
// A frame that is an empty grid of sprite cells.
#pragma once

namespace kelu {

/// Sizes in pixels, colours packed.
struct SpriteSheet {
    int sprite_w = 16, sprite_h = 16; ///< of the inner area of a cell, 1 to 256
    int spacing_x = 0, spacing_y = 0; ///< between the borders of neighbours, less one; 0 to 256
    int rows = 8, columns = 8;        ///< 1 to 256
    int sprite_color = 0;             ///< inside the cells
    int sheet_color = 0xffffff;       ///< between them
    int border_color = 0;
};

/// What the sprite sheet screen was left with last; columns and spaces serve the sheets that animations are saved as.
/// Writers: screens.
inline SpriteSheet sheet_settings;

/// Gives the current frame the sheet's size and draws its cells, each with a border of one pixel round its sprite. The
/// undo queue is emptied. Returns false, with the reason reported, when a frame of that size can't be had; the frame
/// then stays.
bool build_sprite_sheet(const SpriteSheet& sheet);

} // namespace kelu
