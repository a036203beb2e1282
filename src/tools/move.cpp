// SPDX-License-Identifier: MIT
// Grab, fill the gap, float, anchor.
#include "tools/move.h"

#include "draw/cel.h"
#include "draw/lifted.h"
#include "draw/tool_input.h"
#include "draw/tool_options.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "gui/build.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "loop/tool_loop.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "tools/cel_grab.h"
#include "tools/cel_paste.h"

namespace kelu {
namespace {

/// What the lifted rectangle leaves behind: a plain fill, without ink.
void fill_gap()
{
    const bool with_brush_color = tool_option(TOOL_MOVE, options::leave_brush_color) != 0;
    const int right = cel.cel_origin_x + store.cel_bitmap.width() - 1;
    const int bottom = cel.cel_origin_y + store.cel_bitmap.height() - 1;
    rectfill(store.frame_bitmap, cel.cel_origin_x, cel.cel_origin_y, right, bottom,
             with_brush_color ? toolbox.brush_color : toolbox.mask_color);
    touch_area(cel.cel_origin_x, cel.cel_origin_y, right, bottom);
}

} // namespace

void move_tool()
{
    const Point corner = tool_input.tool_nodes[0];
    const bool menu_stood = slot_live(0);
    {
        const KeptCel kept;
        const ToolMeasure size(corner, false);
        if (menu_stood) {
            freeze_menu();
            menu_hide(0);
        }
        if (cel_get(corner.x, corner.y, false) == GRAB_TAKEN) {
            const UndoableOperation step;
            if (lift_piece(cel.cel_origin_x, cel.cel_origin_y, store.cel_bitmap.width(), store.cel_bitmap.height())) {
                fill_gap();
                cel_paste(false, false);
                put_back_piece(); // where the program has ended it
            }
        }
    }
    clear_ghost();
    close_screen();
    build_draw_menu();
    if (!menu_stood) menu_hide(0);
    wait_right_release();
}

} // namespace kelu
