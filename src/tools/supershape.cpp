// The superformula's outline, and its panel.
#include "tools/supershape.h"

#include "draw/operation.h"
#include "draw/preview.h"
#include "draw/tool_input.h"
#include "loop/tool_loop.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "tools/shape_panel.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace kelu {
namespace {

constexpr double half_turn = 3.14159;
constexpr double whole_turn = 6.28318;

struct Position {
    double x = 0, y = 0;
};

enum : int {
    SLOT_DEG = PANEL_OWN,
    SLOT_N1,
    SLOT_N2,
    SLOT_N3,
    SLOT_ARM,
    SLOT_MAG,
    SLOT_DEG_CAPTION,
    SLOT_N1_CAPTION,
    SLOT_N2_CAPTION,
    SLOT_N3_CAPTION,
    SLOT_ARM_CAPTION,
    SLOT_MAG_CAPTION,
    SLOT_COUNT
};
constexpr int panel_w = 319, panel_h = 42;
constexpr int first_magnitude = 100;
constexpr int slider_w = 79;
constexpr int caption_w = 24;
constexpr std::array supershape_slots{
    title_row(2, 2, 316, TEXT_SUPERSHAPE),
    panel_okay_row(panel_h),
    panel_cancel_row(panel_w, panel_h),
    caption_row(SLOT_DEG_CAPTION, 2, 12, caption_w, TEXT_DEG),
    caption_row(SLOT_N1_CAPTION, 108, 12, caption_w, TEXT_N1),
    caption_row(SLOT_N2_CAPTION, 214, 12, caption_w, TEXT_N2),
    caption_row(SLOT_N3_CAPTION, 2, 22, caption_w, TEXT_N3),
    caption_row(SLOT_ARM_CAPTION, 108, 22, caption_w, TEXT_ARM),
    caption_row(SLOT_MAG_CAPTION, 214, 22, caption_w, TEXT_MAG),
    panel_slider_row(SLOT_DEG, 27, 12, slider_w, 0, 359, 360),
    panel_slider_row(SLOT_N1, 133, 12, slider_w, 0, 3000, 256),
    panel_slider_row(SLOT_N2, 239, 12, slider_w, -3000, 3000, 256),
    panel_slider_row(SLOT_N3, 27, 22, slider_w, -3000, 3000, 256),
    panel_slider_row(SLOT_ARM, 133, 22, slider_w, 1, 20, 20, 2),
    panel_slider_row(SLOT_MAG, 239, 22, slider_w, 0, 500, 200),
};
constexpr MenuLayout supershape_panel{.menu_id = MENU_SUPERSHAPE,
                                      .row = WINDOW_SUPERSHAPE,
                                      .x = 0,
                                      .y = 207,
                                      .w = panel_w,
                                      .h = panel_h,
                                      .slot_count = SLOT_COUNT,
                                      .slots = supershape_slots};

void open_panel()
{
    build_screen(supershape_panel);
    const SupershapeSettings& kept = shape_settings.supershape_settings;
    set_panel_slider(SLOT_DEG, kept.degrees);
    set_panel_slider(SLOT_N1, kept.n1);
    set_panel_slider(SLOT_N2, kept.n2);
    set_panel_slider(SLOT_N3, kept.n3);
    set_panel_slider(SLOT_ARM, kept.arms);
    set_panel_slider(SLOT_MAG, kept.magnitude == 0 ? first_magnitude : kept.magnitude);
}

void read_panel()
{
    shown_supershape = {.degrees = gui.scroll_value[SLOT_DEG],
                        .n1 = gui.scroll_value[SLOT_N1],
                        .n2 = gui.scroll_value[SLOT_N2],
                        .n3 = gui.scroll_value[SLOT_N3],
                        .arms = gui.scroll_value[SLOT_ARM],
                        .magnitude = gui.scroll_value[SLOT_MAG]};
}

Point view_origin() { return {view.pan_x, view.pan_y}; }

Point mouse_in_view()
{
    const Point mouse = frame_mouse();
    const Point origin = view_origin();
    return {mouse.x - origin.x, mouse.y - origin.y};
}

/// Plots the accepted shape and brings it into frame coordinates.
void plot_for_the_frame()
{
    const Point origin = view_origin();
    plot_shown_supershape(origin, [](Point, Point) {});
    for (Point& p : tool_input.point_list)
        p = {p.x + origin.x, p.y + origin.y};
}

} // namespace

void supershape_point(double m, double n1, double n2, double n3, double phi, double* x, double* y)
{
    const double t = m * phi * 0.25;
    const double r = std::pow(std::pow(std::abs(std::cos(t)), n2) + std::pow(std::abs(std::sin(t)), n3), 1 / n1);
    *x = r != 0 ? std::cos(phi) / r : 0;
    *y = r != 0 ? std::sin(phi) / r : 0;
}

void plot_supershape(int cx, int cy, const SupershapeSettings& settings, Points& points, Bounds& bounds,
                     FunctionRef<void(Point from, Point to)> segment)
{
    bounds = {};
    points.clear();
    const double turn = settings.degrees * half_turn / 180;
    const double s = std::sin(turn);
    const double c = std::cos(turn);
    const auto hundredths = [](int n) { return static_cast<float>(n) / 100.0F; };
    const double n1 = hundredths(settings.n1);
    const double n2 = hundredths(settings.n2);
    const double n3 = hundredths(settings.n3);
    const double arms = std::max(settings.arms, 1);
    Position last;
    for (int i = 0; i < supershape_points; ++i) {
        double x = 0;
        double y = 0;
        supershape_point(arms, n1, n2, n3, i * whole_turn / supershape_points, &x, &y);
        const Position now{x * c - y * s, x * s + y * c};
        const Point p{to_coordinate(now.x * settings.magnitude + cx), to_coordinate(now.y * settings.magnitude + cy)};
        // A collapsed point lies on the centre; no stretch of the preview starts there.
        if (i > 0 && last.x != 0 && last.y != 0) segment(points.back(), p);
        points.push_back(p);
        bounds.widen(p);
        last = now;
    }
    segment(points.front(), points.back());
    points.push_back(points.front());
}

void plot_shown_supershape(Point origin, FunctionRef<void(Point from, Point to)> segment)
{
    const Point center = tool_input.tool_nodes[0];
    plot_supershape(center.x - origin.x, center.y - origin.y, shown_supershape, tool_input.point_list,
                    tool_input.bounds, segment);
}

void supershape_tool()
{
    tool_input.tool_nodes[0] = frame_mouse();
    open_panel();
    const PreviewScope shown(TOOL_SSHAPE);
    if (run_shape_panel({.read = read_panel, .mouse = mouse_in_view, .drag = drag_anchor})) {
        plot_for_the_frame();
        draw_to_frame(0, 0, TOOL_SSHAPE, current_ink(), toolbox.brush_tip);
        shape_settings.supershape_settings = shown_supershape;
    }
    free_point_list();
    close_shape_panel();
}

} // namespace kelu
