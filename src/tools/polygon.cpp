// The corners of a regular polygon, and its panel.
#include "tools/polygon.h"

#include "base/log.h"
#include "draw/operation.h"
#include "draw/preview.h"
#include "draw/tool_input.h"
#include "loop/tool_loop.h"
#include "runtime/toolbox.h"
#include "tools/shape_panel.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace kelu {
namespace {

constexpr double radians_per_degree = 0.017453292522222223;
constexpr double whole_turn = 6.283185308;
constexpr double half_turn = 3.141592654;
constexpr int fewest_sides = 3, most_sides = 32;
constexpr int smallest_radius = 1, largest_radius = 512;

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

int plot_polygon(int cx, int cy, int degrees, int radius, int sides, Points& points, Bounds& bounds)
{
    bounds = {};
    points.clear();
    if (sides < fewest_sides || sides > most_sides) {
        log_line("[ ERROR ] : Number of sides OOB in call to plot_polygon. Sides = %d", sides);
        return -1;
    }
    if (radius < smallest_radius || radius > largest_radius) {
        log_line("[ ERROR ] : Radius OOB in call to plot_polygon. Radius = %d", radius);
        return -1;
    }
    const double turn = degrees * radians_per_degree;
    for (int i = 0; i < sides; ++i) {
        // Half a step on, so that an edge and not a corner lies at the bottom.
        const double t = i * whole_turn / sides + half_turn / sides;
        const double u = radius * std::sin(t);
        const double v = radius * std::cos(t);
        const Point corner{to_coordinate(std::round(std::cos(turn) * u - std::sin(turn) * v) + cx),
                           to_coordinate(std::round(v * std::cos(turn) + u * std::sin(turn)) + cy)};
        points.push_back(corner);
        bounds.widen(corner);
    }
    points.push_back(points.front());
    return static_cast<int>(points.size());
}

void plot_shown_polygon()
{
    // A radius of 0 stands on the slider's first place and is the smallest polygon.
    plot_polygon(tool_input.tool_nodes[0].x, tool_input.tool_nodes[0].y, shown_polygon.angle,
                 std::max(shown_polygon.radius, smallest_radius), shown_polygon.sides, tool_input.point_list,
                 tool_input.bounds);
}

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
