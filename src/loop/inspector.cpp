// SPDX-License-Identifier: MIT
// Place and lines of the inspector.
#include "loop/inspector.h"

#include "base/run_state.h"
#include "colour/spaces.h"
#include "gui/scheme.h"
#include "gui/text.h"
#include "runtime/frame_snapshot.h"
#include "runtime/measure.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include <algorithm>
#include <array>
#include <cstdio>

namespace kelu {
namespace {

constexpr int pointer_gap = 6;
constexpr int turned_over = 45; ///< how far the box moves up to the other side of the pointer
constexpr int box_w = 63, box_h = 33, box_margin = 2;
constexpr int turned_left = box_w + 2 * pointer_gap;
constexpr int room_right = box_w - box_margin, room_below = 29;
constexpr int box_opacity = 232; ///< numbers can be read on any frame
constexpr int no_data_h = 9;
constexpr int line_pitch = 8;

using Line = std::array<char, 40>;

Line three_numbers(const char* name, double a, double b, double c)
{
    Line line{};
    std::snprintf(line.data(), line.size(), "%s |c41%03d %03d %03d", name, static_cast<int>(a), static_cast<int>(b),
                  static_cast<int>(c));
    return line;
}

/// The six digits in pairs, which are below the three numbers.
Line hex_digits(int color)
{
    Line line{};
    std::snprintf(line.data(), line.size(), "|c24HEX |c41%02X  %02X  %02X", static_cast<unsigned>(red_of(color)),
                  static_cast<unsigned>(green_of(color)), static_cast<unsigned>(blue_of(color)));
    return line;
}

void draw_values(BITMAP* target, int x, int y, int color)
{
    const int r = red_of(color);
    const int g = green_of(color);
    const int b = blue_of(color);
    const Hsv hsv = rgb_to_hsv(r, g, b);
    const Hls hls = rgb_to_hls(r, g, b);
    blend_rect(target, x - box_margin, y - box_margin, box_w, box_h, menu_scheme.scheme_shadow, box_opacity);
    const std::array lines{three_numbers("|c32RGB", r, g, b), three_numbers("|c24HSV", hsv.h, hsv.s, hsv.v),
                           three_numbers("|c24HLS", hls.h, hls.l, hls.s), hex_digits(color)};
    for (const Line& line : lines) {
        set_plain_text(FONT_NARROW, SET_LIGHT);
        draw_text(target, x, y, line.data());
        y += line_pitch;
    }
}

} // namespace

void flip_inspector() { inspector.inspector_on = inspector.inspector_on == 0 ? 1 : 0; }

void draw_inspector(BITMAP* target)
{
    const FrameSnapshot& shot = frame_snapshot;
    if (shot.hover_slot >= 0 || measure.measure_x != -1) return;
    int x = (shot.frame_mouse_x - shot.pan_x) * shot.factor + shot.factor + pointer_gap;
    int y = (shot.frame_mouse_y - shot.pan_y) * shot.factor + shot.factor + pointer_gap;
    if (logical_w < x + room_right) x = std::max(box_margin, x - turned_left);
    if (logical_h <= y + room_below) y -= turned_over;
    BITMAP* frame = store.frame_bitmap;
    if (in_bitmap(frame, shot.frame_mouse_x, shot.frame_mouse_y)) {
        draw_values(target, x, y, row(frame, shot.frame_mouse_y)[shot.frame_mouse_x]);
    } else {
        blend_rect(target, x - box_margin, y - box_margin, box_w, no_data_h, menu_scheme.scheme_shadow, box_opacity);
        set_plain_text(FONT_NARROW, SET_LIGHT);
        draw_text(target, x, y, "(NO DATA)");
    }
}

} // namespace kelu
