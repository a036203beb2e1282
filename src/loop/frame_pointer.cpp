// SPDX-License-Identifier: MIT
// Crosshairs and cursor. Both work in units: logical pixels, or frame pixels at the zoom factor.
#include "loop/frame_pointer.h"

#include "base/run_state.h"
#include "draw/tips.h"
#include "gui/text.h"
#include "runtime/frame_snapshot.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/toolbox.h"
#include <algorithm>
#include <array>

namespace kelu {
namespace {

constexpr int one_pixel_tip = 35; ///< the tip that shows no cross and no crosshairs
constexpr int crosshair_gap = 4;  ///< pixels left free on each side of the pointer
constexpr int tip_opacity = 192;  ///< of the tip's shape, over the picture's inverse
constexpr int inverse = 0xffffff;
constexpr int label_font = 5;
constexpr int waiting_colour_set = 38;

/// Where the pointer is in units of the picture, and how many logical pixels a unit has.
struct Units {
    int x, y, size;
};

Units pointer_units(bool scaled)
{
    const FrameSnapshot& shot = frame_snapshot;
    if (!scaled) return {shot.mouse_x, shot.mouse_y, 1};
    return {shot.mouse_x / shot.factor, shot.mouse_y / shot.factor, shot.factor};
}

void paint_unit(BITMAP* target, const Units& at, int dx, int dy, int color)
{
    blend_rect(target, (at.x + dx) * at.size, (at.y + dy) * at.size, at.size, at.size, color, 255);
}

void invert_unit(BITMAP* target, const Units& at, int dx, int dy)
{
    for (int y = (at.y + dy) * at.size; y < (at.y + dy + 1) * at.size; ++y) {
        for (int x = (at.x + dx) * at.size; x < (at.x + dx + 1) * at.size; ++x) {
            if (!in_bitmap(target, x, y)) continue;
            int& pixel = row(target, y)[x];
            pixel = blend_pixel(pixel, pixel ^ inverse, tip_opacity);
        }
    }
}

bool tip_shows() { return preferences.cursor_tip != 0 && toolbox.brush_tip > 0 && frame_snapshot.hover_slot < 0; }

void paint_tip_shape(BITMAP* target, const Units& at)
{
    BITMAP* shape = tips.tip_cursor;
    if (!shape) return;
    for (int y = 0; y < shape->h; ++y) {
        for (int x = 0; x < shape->w; ++x) {
            if (row(shape, y)[x] == fixed_colours.white) invert_unit(target, at, x - tip_center_x, y - tip_center_y);
        }
    }
}

void paint_cross(BITMAP* target, const Units& at)
{
    constexpr std::array<std::array<int, 2>, 4> arms{{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}};
    for (const auto& [dx, dy] : arms) {
        paint_unit(target, at, 2 * dx, 2 * dy, fixed_colours.black);
        paint_unit(target, at, 3 * dx, 3 * dy, fixed_colours.white);
        paint_unit(target, at, 4 * dx, 4 * dy, fixed_colours.white);
    }
}

/// Pixels that the bars leave free on each side of the pointer.
TipReach gap_around_pointer()
{
    if (preferences.cursor_tip == 0 || toolbox.brush_tip == 0)
        return {crosshair_gap, crosshair_gap, crosshair_gap, crosshair_gap};
    return tips.reach;
}

} // namespace

void paint_crosshairs(BITMAP* target)
{
    const int opacity = preferences.crosshair_opacity;
    if (opacity == 0 || toolbox.brush_tip == one_pixel_tip) return;
    constexpr std::array<int, 3> colors{0xffffff, 0x808080, 0x000000};
    const int color = colors[std::clamp(int(preferences.crosshair_color), 0, 2)];
    const Units at = pointer_units(preferences.crosshair_scaling != 0);
    const TipReach gap = gap_around_pointer();
    const int left = at.x * at.size;
    const int top = at.y * at.size;
    const auto bar = [&](int x, int y, int w, int h) { blend_rect(target, x, y, w, h, color, opacity); };
    bar(0, top, left - gap.left * at.size, at.size);
    bar(left + (gap.right + 1) * at.size, top, logical_w, at.size);
    bar(left, 0, at.size, top - gap.up * at.size);
    bar(left, top + (gap.down + 1) * at.size, at.size, logical_h);
}

void paint_cursor(BITMAP* target, bool scaled)
{
    const Units at = pointer_units(scaled);
    if (tip_shows()) {
        paint_tip_shape(target, at);
        return;
    }
    paint_unit(target, at, 0, 0, toolbox.brush_color);
    if (toolbox.brush_tip != one_pixel_tip) paint_cross(target, at);
}

void paint_waiting_cursor(BITMAP* target)
{
    set_plain_text(label_font, waiting_colour_set);
    draw_text(target, frame_snapshot.mouse_x - 2, frame_snapshot.mouse_y - 2, "X");
}

} // namespace kelu
