// SPDX-License-Identifier: MIT
// The panel over the canvas.
#include "tools/polygon_tool.h"

#include "draw/polygon.h"
#include "draw/preview.h"
#include "draw/tool_input.h"
#include "loop/tool_loop.h"
#include "runtime/toolbox.h"
#include "tools/operation.h"
#include "tools/shape_panel.h"
#include <algorithm>
#include <array>

namespace kelu {
namespace {

enum : int {
    SLOT_ANGLE = PANEL_OWN,
    SLOT_RADIUS,
    SLOT_SIDES,
    SLOT_ANGLE_CAPTION,
    SLOT_RADIUS_CAPTION,
    SLOT_SIDES_CAPTION,
    SLOT_COUNT
};
constexpr int panel_w = 160, panel_h = 52;
constexpr std::array polygon_slots{
    title_row(2, 2, 157, TEXT_REGULAR_POLYGON),
    panel_okay_row(panel_h),
    panel_cancel_row(panel_w, panel_h),
    caption_row(SLOT_ANGLE_CAPTION, 2, 12, 39, TEXT_ANGLE),
    caption_row(SLOT_RADIUS_CAPTION, 2, 22, 39, TEXT_RADIUS),
    caption_row(SLOT_SIDES_CAPTION, 2, 32, 39, TEXT_SIDES),
    panel_slider_row(SLOT_ANGLE, 42, 12, 117, 0, 359, 360),
    panel_slider_row(SLOT_RADIUS, 42, 22, 117, 0, 500, 256),
    panel_slider_row(SLOT_SIDES, 42, 32, 117, fewest_sides, most_sides, 30, 2),
};
constexpr MenuLayout polygon_panel{.menu_id = MENU_RPOLY,
                                   .row = WINDOW_RPOLY,
                                   .x = 0,
                                   .y = 207,
                                   .w = panel_w,
                                   .h = panel_h,
                                   .slot_count = SLOT_COUNT,
                                   .slots = polygon_slots};

void open_panel()
{
    build_screen(polygon_panel);
    const RpolySettings& kept = shape_settings.rpoly_settings;
    set_panel_slider(SLOT_ANGLE, kept.angle);
    set_panel_slider(SLOT_RADIUS, std::max(kept.radius, smallest_radius));
    set_panel_slider(SLOT_SIDES, kept.sides > most_sides ? fewest_sides : kept.sides);
}

void read_panel()
{
    shown_polygon = {.angle = gui.scroll_value[SLOT_ANGLE],
                     .radius = gui.scroll_value[SLOT_RADIUS],
                     .sides = gui.scroll_value[SLOT_SIDES]};
}

} // namespace

void regular_polygon_tool()
{
    open_panel();
    const PreviewScope shown(TOOL_RPOLY);
    if (run_shape_panel({.read = read_panel, .mouse = frame_mouse, .drag = drag_anchor})) {
        plot_shown_polygon();
        draw_to_frame(0, 0, TOOL_RPOLY, current_ink(), toolbox.brush_tip);
        shape_settings.rpoly_settings = shown_polygon;
    }
    free_point_list();
    close_shape_panel();
}

} // namespace kelu
