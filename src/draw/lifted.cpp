// SPDX-License-Identifier: MIT
// The way back of a lifted piece.
#include "draw/lifted.h"

#include "draw/touched.h"
#include "runtime/store.h"
#include <utility>

namespace kelu {

bool lift_piece(int x, int y, int w, int h)
{
    lifted = {Bitmap(w, h), x, y};
    if (lifted.pixels) blit(store.frame_bitmap, lifted.pixels, x, y, 0, 0, w, h);
    return piece_lifted();
}

bool piece_lifted() { return static_cast<bool>(lifted.pixels); }

void put_back_piece()
{
    const Lifted piece = std::exchange(lifted, {});
    if (!piece.pixels) return;
    const int w = piece.pixels.width(), h = piece.pixels.height();
    blit(piece.pixels, store.frame_bitmap, 0, 0, piece.x, piece.y, w, h);
    touch_area(piece.x, piece.y, piece.x + w - 1, piece.y + h - 1);
}

void leave_gap() { lifted = {}; }

} // namespace kelu
