// SPDX-License-Identifier: MIT
// Two clicks under a message each.
#include "screens/quick_crop.h"

#include "draw/cel.h"
#include "loop/tool_loop.h"
#include "tools/cel_loop.h"
#include "tools/grab_marker.h"
#include "workspace/frame_resize.h"
#include <algorithm>
#include <cstdlib>

namespace kelu {
namespace {

/// The frame pixel under the pointer at the next click; empty after a right click or when the program ends.
std::optional<Point> clicked_pixel(int message)
{
    menus.status_message = message;
    CanvasButtons buttons;
    while (run_pass(passes::cel)) {
        if (buttons.left_pressed()) {
            const Point at = frame_mouse();
            wait_left_release();
            return at;
        }
        if (buttons.right_pressed()) {
            wait_right_release();
            return {};
        }
    }
    return {};
}

} // namespace

void quick_crop()
{
    const GrabMarker marker(no_grab, no_grab);
    const std::optional<Point> first = clicked_pixel(TIP_CROP_FIRST);
    if (!first) return;
    GrabMarker::set(first->x, first->y);
    const std::optional<Point> second = clicked_pixel(TIP_CROP_SECOND);
    if (!second) return;
    crop_frame(std::min(first->x, second->x), std::min(first->y, second->y), std::abs(first->x - second->x) + 1,
               std::abs(first->y - second->y) + 1);
}

} // namespace kelu
