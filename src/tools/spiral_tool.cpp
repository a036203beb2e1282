// SPDX-License-Identifier: MIT
// The panel over the canvas, and the drag of the whole spiral.
#include "tools/spiral_tool.h"

#include "draw/preview.h"
#include "draw/spiral.h"
#include "draw/tool_input.h"
#include "loop/tool_loop.h"
#include "runtime/shape_settings.h"
#include "runtime/toolbox.h"
#include "tools/operation.h"
#include "tools/shape_panel.h"
#include <array>

namespace kelu {
namespace {

enum : int {
    SLOT_ANGLE = PANEL_OWN,
    SLOT_SCALE,
    SLOT_WRAPS,
    SLOT_SPREAD,
    SLOT_FLIP,
    SLOT_ANGLE_CAPTION,
    SLOT_SCALE_CAPTION,
    SLOT_WRAPS_CAPTION,
    SLOT_SPREAD_CAPTION,
    SLOT_COUNT
};
constexpr int panel_w = 160, panel_h = 62;
constexpr int lowest_scale = 1, highest_scale = 500, first_scale = 100;
constexpr int fewest_wraps = 1, most_wraps = 64, first_wraps = 5;
constexpr std::array spiral_slots{
    title_row(2, 2, 157, TEXT_SPIRAL_TOOL),
    panel_okay_row(panel_h),
    SlotRow{SLOT_FLIP, 61, panel_h - 10, 39, KIND_BUTTON, TEXT_FLIP, ACT_FLIP},
    panel_cancel_row(panel_w, panel_h),
    caption_row(SLOT_ANGLE_CAPTION, 2, 12, 39, TEXT_ANGLE),
    caption_row(SLOT_SCALE_CAPTION, 2, 22, 39, TEXT_SCALE),
    caption_row(SLOT_WRAPS_CAPTION, 2, 32, 39, TEXT_WRAPS),
    caption_row(SLOT_SPREAD_CAPTION, 2, 42, 39, TEXT_SPREAD),
    panel_slider_row(SLOT_ANGLE, 42, 12, 117, 0, 359, 360, 15),
    panel_slider_row(SLOT_SCALE, 42, 22, 117, lowest_scale, highest_scale, 500),
    panel_slider_row(SLOT_WRAPS, 42, 32, 117, fewest_wraps, most_wraps, 64),
    panel_slider_row(SLOT_SPREAD, 42, 42, 117, 0, 255, 256, 2),
};
constexpr MenuLayout spiral_panel{.menu_id = MENU_SPIRAL,
                                  .row = WINDOW_SPIRAL,
                                  .x = 0,
                                  .y = 197,
                                  .w = panel_w,
                                  .h = panel_h,
                                  .slot_count = SLOT_COUNT,
                                  .slots = spiral_slots};

/// What the point list shows.
SpiralSettings shown_spiral;

void plot_shown_spiral()
{
    const Point center = tool_input.tool_nodes[0];
    plot_spiral(center.x, center.y, shown_spiral.angle, shown_spiral.scale, shown_spiral.wraps, shown_spiral.spread,
                shown_spiral.flip != 0, tool_input.point_list, tool_input.bounds);
}

void open_panel()
{
    build_screen(spiral_panel);
    const SpiralSettings& kept = shape_settings.spiral_settings;
    set_panel_slider(SLOT_ANGLE, kept.angle);
    set_panel_slider(SLOT_SCALE, kept.scale < lowest_scale ? first_scale : kept.scale);
    set_panel_slider(SLOT_WRAPS, kept.wraps < fewest_wraps ? first_wraps : kept.wraps);
    set_panel_slider(SLOT_SPREAD, kept.spread);
    gui.kind[SLOT_FLIP] = kept.flip ? KIND_BUTTON_LIT : KIND_BUTTON;
}

SpiralSettings panel_values()
{
    return {.angle = gui.scroll_value[SLOT_ANGLE],
            .scale = gui.scroll_value[SLOT_SCALE],
            .wraps = gui.scroll_value[SLOT_WRAPS],
            .spread = gui.scroll_value[SLOT_SPREAD],
            .flip = gui.kind[SLOT_FLIP] == KIND_BUTTON_LIT};
}

/// The list is long: it is rebuilt when a value has changed.
void read_panel()
{
    const SpiralSettings values = panel_values();
    if (values == shown_spiral) return;
    shown_spiral = values;
    plot_shown_spiral();
}

void move_list(Point by)
{
    if (by == Point{}) return;
    for (Point& p : tool_input.point_list)
        p = {p.x + by.x, p.y + by.y};
    Bounds& box = tool_input.bounds;
    box = {box.left + by.x, box.top + by.y, box.right + by.x, box.bottom + by.y};
}

/// Moves the list with the mouse until a click: the left button leaves it there, false; the right one puts it back,
/// true.
bool drag_spiral()
{
    Point last = snapped_mouse();
    const auto follow = [&] {
        const Point now = snapped_mouse();
        move_list({now.x - last.x, now.y - last.y});
        last = now;
    };
    tool_input.show_bounds = 1;
    bool put_back = false;
    while (run_pass(passes::plain)) {
        follow();
        if (left_down()) {
            wait_left_release();
            follow();
            if (!tool_input.point_list.empty()) tool_input.tool_nodes[0] = tool_input.point_list.front();
            break;
        }
        if (right_down()) {
            wait_right_release();
            plot_shown_spiral();
            put_back = true;
            break;
        }
    }
    tool_input.show_bounds = 0;
    return put_back;
}

} // namespace

void spiral_tool()
{
    open_panel();
    shown_spiral = panel_values();
    plot_shown_spiral();
    const PreviewScope shown(TOOL_SPIRAL);
    if (run_shape_panel({.read = read_panel, .mouse = frame_mouse, .drag = drag_spiral})) {
        draw_to_frame(0, 0, TOOL_SPIRAL, current_ink(), toolbox.brush_tip);
        shape_settings.spiral_settings = shown_spiral;
    }
    free_point_list();
    close_shape_panel();
}

} // namespace kelu
