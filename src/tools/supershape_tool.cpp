// SPDX-License-Identifier: MIT
// The panel over the canvas.
#include "tools/supershape_tool.h"

#include "draw/preview.h"
#include "draw/supershape.h"
#include "draw/tool_input.h"
#include "loop/tool_loop.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "tools/operation.h"
#include "tools/shape_panel.h"
#include <array>

namespace kelu {
namespace {

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
    plot_shown_supershape(origin);
    for (Point& p : tool_input.point_list)
        p = {p.x + origin.x, p.y + origin.y};
}

} // namespace

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
