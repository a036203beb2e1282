// SPDX-License-Identifier: MIT
// The centre, then the panel of the angle.
#include "tools/cel_turn.h"

#include "base/run_state.h"
#include "loop/frame.h"
#include "loop/tool_loop.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "tools/cel_loop.h"
#include "tools/shape_panel.h"
#include <optional>

namespace kelu {
namespace {

constexpr int panel_w = 142, panel_h = 36;
constexpr int whole_turn = 360;
constexpr double units_of_degree = 0.711111111; ///< Allegro's circle has 256
enum TurnSlot : int { SLOT_ANGLE = PANEL_OWN, SLOT_END };

constexpr SlotRow turn_slots[] = {
    title_row(2, 2, panel_w - 3, TEXT_SET_ROTATION),
    panel_okay_row(panel_h),
    panel_cancel_row(panel_w, panel_h),
    panel_slider_row(SLOT_ANGLE, 2, 13, panel_w - 3, 0, whole_turn, whole_turn + 1),
};

/// Opens the panel in the corner of the screen that is farthest from the centre.
void open_panel(Point center)
{
    const Point shown = in_view(center);
    const int factor = zoom_factor();
    build_screen(MenuLayout{.menu_id = MENU_DIALOG,
                            .x = shown.x * factor < logical_w / 2 ? logical_w - 1 - panel_w : 0,
                            .y = shown.y * factor < logical_h / 2 ? logical_h - 1 - panel_h : 0,
                            .w = panel_w,
                            .h = panel_h,
                            .slot_count = SLOT_END,
                            .slots = turn_slots});
    set_panel_slider(SLOT_ANGLE, cel.cel_rotation);
}

void read_angle() { cel_work.cel_place.x2 = static_cast<int>(gui.scroll_value[SLOT_ANGLE] * units_of_degree); }

bool on_preview(Point at)
{
    const CelPlace& place = cel_work.cel_place;
    return at.x >= place.box_x && at.x <= place.box_w && at.y >= place.box_y && at.y <= place.box_h;
}

/// Runs the panel; true when the cel is to be anchored.
bool choose_angle()
{
    CanvasButtons buttons;
    const auto follow = [] {
        read_angle();
        menus.status_message = TIP_ROTATION;
    };
    for (follow(); run_pass(passes::cel); follow()) {
        if (buttons.left_pressed() && on_preview(mouse_in_view())) {
            wait_left_release();
            cel_work.cel_place.show_outline = 1;
            menus.status_message = TIP_NEW_CENTER;
            const bool anchored = cel_drag();
            cel_work.cel_place.show_outline = 0;
            if (anchored) return true;
        }
        if (buttons.right_pressed()) {
            wait_right_release();
            return true;
        }
        if (gui.event[PANEL_OKAY].take() != 0) return true;
        if (gui.event[PANEL_CANCEL].take() != 0) return false;
    }
    return false;
}

} // namespace

void cel_turn()
{
    const std::optional<Point> center = ask_point(TIP_CEL_CENTER);
    if (!center) return;
    restore_cel_copy();
    open_panel(*center);
    {
        const FloatingCel floating(CEL_ROTATION, *center);
        read_angle();
        run_frame(0);
        apply_cel_mask(store.cel_bitmap, toolbox.mask_color);
        if (choose_angle()) {
            read_angle();
            cel.cel_rotation = gui.scroll_value[SLOT_ANGLE];
            anchor_cel(CEL_ROTATION, true);
        }
    }
    close_shape_panel();
}

} // namespace kelu
