// SPDX-License-Identifier: MIT
// The floating cel, moved by clicks and anchored by a right one.
#include "tools/cel_paste.h"

#include "draw/cel_render.h"
#include "draw/lifted.h"
#include "draw/undo.h"
#include "loop/frame.h"
#include "loop/home_strip.h"
#include "loop/tool_loop.h"
#include "runtime/measure.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "tools/cel_loop.h"
#include <utility>

namespace kelu {
namespace {

bool on_cel(Point at)
{
    const CelPlace& place = cel_work.cel_place;
    return in_bitmap(store.cel_bitmap, at.x - place.x, at.y - place.y);
}

void clear_tool_measure()
{
    if (measure.measure_state == 0 && preferences.show_tool_distance != 0) measure = {};
}

/// Lets the user place the floating cel. True when it was anchored, false when the program ends.
bool place_cel()
{
    OffscreenWindow offscreen(TEXT_CEL_OFFSCREEN, TEXT_JUMP_TO_CEL, TEXT_BRING_CEL_HERE);
    CanvasButtons buttons;
    const auto prompt = [] { menus.status_message = TIP_CEL_REPOSITION; };
    for (prompt(); run_pass(passes::cel); prompt()) {
        if (buttons.left_pressed() && on_cel(frame_mouse())) {
            wait_left_release();
            const ToolMeasure distance(snapped_mouse(), true);
            if (cel_drag()) return true;
        }
        if (buttons.right_pressed()) {
            wait_right_release();
            return true;
        }
        offscreen.show(cel_work.cel_in_view == 0);
        if (offscreen.first_clicked()) cel_jump(false);
        if (offscreen.second_clicked()) cel_jump(true);
    }
    return false;
}

} // namespace

bool cel_paste(bool remask, bool undoable)
{
    clear_tool_measure();
    if (remask) {
        restore_cel_copy();
        apply_cel_mask(store.cel_bitmap, toolbox.mask_color);
    }
    const FloatingCel floating(CEL_PLAIN, {cel.cel_origin_x, cel.cel_origin_y});
    CelPlace& place = cel_work.cel_place;
    place.show_outline = 1;
    if (!place_cel()) return false;
    place.show_outline = 0;
    cel.cel_origin_x = place.x;
    cel.cel_origin_y = place.y;
    // A piece that has left the frame that it was lifted from is no part of an operation on this one.
    anchor_cel(CEL_PLAIN, undoable || !piece_lifted());
    leave_gap();
    return true;
}

void cel_below()
{
    clear_tool_measure();
    restore_cel_copy();
    const FloatingCel floating(CEL_PLAIN, {cel.cel_origin_x, cel.cel_origin_y});
    cel_work.cel_place.show_outline = 1;
    run_frame(0);
    apply_cel_mask(store.cel_bitmap, toolbox.mask_color);
    if (!place_cel()) return;
    anchor_cel(CEL_BELOW, true);
}

void cel_jump(bool bring)
{
    CelPlace& place = cel_work.cel_place;
    const Point half{store.cel_bitmap.width() / 2, store.cel_bitmap.height() / 2};
    if (bring) {
        place.x = view.view_center_x - half.x;
        place.y = view.view_center_y - half.y;
    } else {
        center_view_on({place.x + half.x, place.y + half.y});
    }
}

void paste_picture(Bitmap picture)
{
    const KeptCel kept;
    store.cel_bitmap = picture.copy();
    if (!store.cel_bitmap) return;
    store.cel_source_bitmap = std::move(picture);
    cel.cel_origin_x = cel.cel_origin_y = 0;
    cel_paste(false, true);
    if (menus.menu_id == MENU_DRAW) build_draw_menu();
}

} // namespace kelu
