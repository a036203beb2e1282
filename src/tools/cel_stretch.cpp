// SPDX-License-Identifier: MIT
// A corner, then a size that follows the mouse until a click.
#include "tools/cel_stretch.h"

#include "loop/frame.h"
#include "loop/tool_loop.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "tools/cel_loop.h"
#include <optional>

namespace kelu {
namespace {

void follow_mouse()
{
    const Point mouse = frame_mouse();
    cel_work.cel_place.x2 = mouse.x;
    cel_work.cel_place.y2 = mouse.y;
}

bool in_box(Point at)
{
    const CelPlace& place = cel_work.cel_place;
    return at.x >= place.box_x && at.x < place.box_x + place.box_w && at.y >= place.box_y &&
           at.y < place.box_y + place.box_h;
}

/// Lets the user size and move the cel; true when it is to be anchored.
bool choose_size()
{
    CelPlace& place = cel_work.cel_place;
    CanvasButtons buttons;
    const auto sizing = [] { return cel_work.cel_place.show_outline == 0; };
    const auto follow = [&sizing] {
        if (sizing()) follow_mouse();
        menus.status_message = sizing() ? TIP_STRETCH_SIZE : TIP_STRETCH_OR_MOVE;
    };
    for (follow(); run_pass(passes::cel); follow()) {
        if (buttons.left_pressed()) {
            const bool inside = in_box(mouse_in_view());
            wait_left_release();
            if (sizing()) {
                place.show_outline = 1;
            } else if (!inside) {
                place.show_outline = 0;
            } else if (cel_drag()) {
                return true;
            }
        }
        if (buttons.right_pressed()) {
            wait_right_release();
            return place.show_outline != 0;
        }
    }
    return false;
}

} // namespace

void cel_stretch()
{
    const std::optional<Point> corner = ask_point(TIP_STRETCH_FROM);
    if (!corner) return;
    restore_cel_copy();
    const FloatingCel floating(CEL_STRETCH, *corner);
    follow_mouse();
    run_frame(0);
    apply_cel_mask(store.cel_bitmap, toolbox.mask_color);
    if (choose_size()) anchor_cel(CEL_STRETCH, true);
}

} // namespace kelu
