// SPDX-License-Identifier: MIT
// Cells in rows and columns.
#include "workspace/sprite_sheet.h"

#include "draw/touched.h"
#include "draw/undo.h"
#include "runtime/store.h"
#include "workspace/frame_resize.h"

namespace kelu {
namespace {

/// Pixels of `count` cells along one axis: neighbours without spacing are one pixel apart, border beside border.
int extent(int count, int pitch, int spacing) { return count * pitch + 1 - spacing; }

} // namespace

bool build_sprite_sheet(const SpriteSheet& sheet)
{
    const int pitch_x = sheet.sprite_w + sheet.spacing_x + 1;
    const int pitch_y = sheet.sprite_h + sheet.spacing_y + 1;
    const int w = extent(sheet.columns, pitch_x, sheet.spacing_x);
    const int h = extent(sheet.rows, pitch_y, sheet.spacing_y);
    if (!resize_frame(store.current_frame, w, h, 0, 0)) return false;
    BITMAP* frame = store.frame_bitmap;
    clear_to_color(frame, sheet.sheet_color);
    for (int row = 0; row < sheet.rows; ++row) {
        for (int column = 0; column < sheet.columns; ++column) {
            const int x = column * pitch_x, y = row * pitch_y;
            const int right = x + sheet.sprite_w + 1, bottom = y + sheet.sprite_h + 1;
            rectfill(frame, x, y, right, bottom, sheet.sprite_color);
            rect(frame, x, y, right, bottom, sheet.border_color);
        }
    }
    touch_frame();
    settle_frame();
    return true;
}

} // namespace kelu
