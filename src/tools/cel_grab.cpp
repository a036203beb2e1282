// SPDX-License-Identifier: MIT
// The two ways to take a cel.
#include "tools/cel_grab.h"

#include "base/run_state.h"
#include "draw/dashes.h"
#include "draw/preview.h"
#include "loop/freeze.h"
#include "loop/tool_loop.h"
#include "runtime/clock.h"
#include "runtime/input.h"
#include "runtime/shows.h"
#include "tools/cel_loop.h"
#include "tools/grab_marker.h"
#include <algorithm>
#include <optional>

namespace kelu {
namespace {

constexpr int clip_shown = 300; ///< counts of the 500 Hz clock that a clipped box is shown

/// The menu out of the way of a grab, if it is open.
class MenuAside {
public:
    explicit MenuAside(bool wanted) : hidden_(wanted && slot_live(0))
    {
        if (!hidden_) return;
        freeze_menu();
        menu_toggle_hidden(0);
    }
    ~MenuAside()
    {
        if (!hidden_) return;
        menu_toggle_hidden(0);
        clear_ghost();
    }
    MenuAside(const MenuAside&) = delete;
    MenuAside& operator=(const MenuAside&) = delete;

private:
    bool hidden_;
};

CelRect rect_between(Point a, Point b)
{
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

} // namespace

GrabResult cel_get(int x0, int y0, bool hide_menu)
{
    const bool fresh = x0 == no_corner_yet || y0 == no_corner_yet;
    std::optional<Point> first;
    if (!fresh) first = Point{x0, y0};
    std::optional<Point> second;
    {
        const MenuAside aside(hide_menu);
        const GrabMarker marker(fresh ? no_corner_yet : x0, fresh ? no_corner_yet : y0);
        std::optional<ToolMeasure> size;
        CanvasButtons buttons;
        while (!second) {
            menus.status_message = first ? TIP_GRAB_SECOND : TIP_GRAB_FIRST;
            if (!run_pass(passes::cel)) return GRAB_CANCELLED;
            if (buttons.left_pressed()) {
                sample_press();
                const Point corner = snapped_press();
                if (first) {
                    second = corner;
                } else {
                    first = corner;
                    GrabMarker::set(corner.x, corner.y);
                    size.emplace(corner, false);
                }
                wait_left_release();
            }
            if (buttons.right_pressed()) {
                wait_right_release();
                return GRAB_CANCELLED;
            }
        }
    }
    const CelRect rect = rect_between(*first, *second);
    if (!take_cel(rect)) return GRAB_CANCELLED;
    cel.cel_origin_x = rect.left;
    cel.cel_origin_y = rect.top;
    return GRAB_TAKEN;
}

void cel_clip(int color)
{
    const CelRect box = find_picture(color);
    if (box.width() <= 1 || box.height() <= 1 || !take_cel(box)) return;
    const PreviewScope shown(no_preview); // the overlay is in use
    const TickWait wait;
    do {
        something_shows();
        clear_to_color(screen_state.tool_overlay, mask_magenta);
        DashPen(screen_state.tool_overlay).rectangle(in_view({box.left, box.top}), in_view({box.right, box.bottom}));
    } while (run_pass(passes::plain) && clock_state.wait_counter < clip_shown);
    clear_to_color(screen_state.tool_overlay, mask_magenta);
}

} // namespace kelu
