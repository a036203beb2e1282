// SPDX-License-Identifier: MIT
// Painting of the frame. Above factor 1 a line of the view is stretched once and copied for each of its screen lines.
#include "runtime/frame_picture.h"

#include "base/run_state.h"
#include "runtime/frame_flags.h"
#include "runtime/frame_snapshot.h"
#include "runtime/grid.h"
#include "runtime/pixels.h"
#include "runtime/sheets.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include <algorithm>
#include <array>
#include <cstring>

namespace kelu {
namespace {

/// The part of the view that shows frame pixels, in frame pixels relative to the pan: first inclusive, last not.
struct Visible {
    int x0, y0, x1, y1;
};

Visible visible_part()
{
    const FrameSnapshot& shot = frame_snapshot;
    const int across = (logical_w + shot.factor - 1) / shot.factor;
    const int down = (logical_h + shot.factor - 1) / shot.factor;
    return {std::max(0, -shot.pan_x), std::max(0, -shot.pan_y),
            std::min(across, store.frame_bitmap.width() - shot.pan_x),
            std::min(down, store.frame_bitmap.height() - shot.pan_y)};
}

/// One line of the view in frame pixels: the frame's, with onion skin and overlay laid over.
void compose_line(int* line, int j, const Visible& part, bool overlay)
{
    const FrameSnapshot& shot = frame_snapshot;
    const int y = shot.pan_y + j;
    std::copy_n(row(store.frame_bitmap, y) + shot.pan_x + part.x0, part.x1 - part.x0, line + part.x0);
    BITMAP* skin = view.onion_on != 0 ? store.onion_bitmap.get() : nullptr;
    if (skin && y < skin->h) {
        const int* from = row(skin, y) + shot.pan_x;
        const int opacity = view.onion_opacity;
        for (int i = part.x0; i < std::min(part.x1, skin->w - shot.pan_x); ++i)
            line[i] = blend_sprite_pixel(line[i], from[i] & 0xffffff, opacity);
    }
    if (overlay) {
        const int* from = row(screen_state.tool_overlay, j);
        for (int i = part.x0; i < part.x1; ++i) {
            if (from[i] != mask_magenta) line[i] = from[i];
        }
    }
}

/// First grid line at or after the view's edge on one axis, in frame coordinates.
int first_grid_line(int edge, int pitch, int offset)
{
    const int behind = (edge - offset) % pitch;
    return behind == 0 ? edge : edge - behind + (behind > 0 ? pitch : 0);
}

/// At factor 1 each grid point is mixed with its own inverse.
void paint_grid(BITMAP* target, const Visible& part)
{
    const int pitch_x = std::max(1, int(grid.grid_w));
    const int pitch_y = std::max(1, int(grid.grid_h));
    const int opacity = std::clamp(int(grid.grid_opacity), 0, 255);
    const FrameSnapshot& shot = frame_snapshot;
    for (int y = first_grid_line(shot.pan_y + part.y0, pitch_y, grid.grid_off_y); y < shot.pan_y + part.y1;
         y += pitch_y) {
        int* line = row(target, y - shot.pan_y);
        for (int x = first_grid_line(shot.pan_x + part.x0, pitch_x, grid.grid_off_x); x < shot.pan_x + part.x1;
             x += pitch_x) {
            int& pixel = line[x - shot.pan_x];
            pixel = mix_colors(pixel, pixel ^ 0xffffff, opacity);
        }
    }
}

void paint_plain(BITMAP* target, const Visible& part, bool overlay)
{
    for (int j = part.y0; j < part.y1; ++j)
        compose_line(row(target, j), j, part, false);
    if (grid.grid_on != 0 && frame_flags.clean_render == 0) paint_grid(target, part);
    if (overlay) masked_blit(screen_state.tool_overlay, target, 0, 0, 0, 0, logical_w, logical_h);
}

/// Writes each of `count` pixels `factor` times.
template <int factor>
void widen(const int* from, int* to, int count)
{
    for (int i = 0; i < count; ++i) {
        for (int k = 0; k < factor; ++k)
            to[i * factor + k] = from[i];
    }
}

/// By zoom level, 2 first.
constexpr std::array<void (*)(const int*, int*, int), max_zoom - 1> widen_by_zoom{widen<2>, widen<4>, widen<8>,
                                                                                  widen<16>, widen<32>};

void paint_zoomed(BITMAP* target, const Visible& part, bool overlay)
{
    const int factor = frame_snapshot.factor;
    std::array<int, logical_w> line{};
    const int left = part.x0 * factor;
    const int right = part.x1 * factor; // every factor divides the width of the view
    const auto widen_line = widen_by_zoom[frame_snapshot.zoom - 2];
    for (int j = part.y0; j < part.y1; ++j) {
        compose_line(line.data(), j, part, overlay);
        int* first = row(target, j * factor);
        widen_line(line.data() + part.x0, first + left, part.x1 - part.x0);
        const int bottom = std::min((j + 1) * factor, logical_h);
        const std::size_t bytes = sizeof(int) * (right - left);
        for (int y = j * factor + 1; y < bottom; ++y)
            std::memcpy(row(target, y) + left, first + left, bytes);
    }
}

} // namespace

void paint_background(BITMAP* target)
{
    const FrameSnapshot& shot = frame_snapshot;
    const int shift = shot.zoom - 1;
    const bool covered = shot.pan_x >= 0 && shot.pan_y >= 0 &&
                         ((logical_w - 1) >> shift) + shot.pan_x < store.frame_bitmap.width() &&
                         ((logical_h - 1) >> shift) + shot.pan_y < store.frame_bitmap.height();
    if (!covered) paint_backdrop(target, shot.backdrop, 0, 0, target->w, target->h);
}

void paint_backdrop(BITMAP* target, int tile, int x0, int y0, int x1, int y1)
{
    if (!sheets.backdrop_tiles) return;
    const int left = std::clamp(tile, 0, sheets.backdrop_tiles.width() / tile_side - 1) * tile_side;
    for (int y = y0; y < y1; ++y) {
        const int* line = row(sheets.backdrop_tiles, y % tile_side) + left;
        for (int x = x0; x < x1;) {
            const int within = x % tile_side;
            const int count = std::min(tile_side - within, x1 - x);
            std::copy_n(line + within, count, row(target, y) + x);
            x += count;
        }
    }
}

void paint_frame(BITMAP* target, bool overlay)
{
    if (!store.frame_bitmap) return;
    const Visible part = visible_part();
    if (part.x1 <= part.x0 || part.y1 <= part.y0) return;
    if (frame_snapshot.factor == 1) {
        paint_plain(target, part, overlay);
    } else {
        paint_zoomed(target, part, overlay);
    }
}

} // namespace kelu
