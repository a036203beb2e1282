// SPDX-License-Identifier: MIT
// From a tool's call to its geometry.
#include "tools/operation.h"

#include "base/log.h"
#include "draw/operation.h"
#include "draw/tool_input.h"
#include "draw/undo.h"
#include "loop/frame.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "tools/tools.h"

namespace kelu {

void show_waiting_frame() { run_frame(1); }

void draw_to_frame(int x, int y, int brush, int ink, int style)
{
    if (!operation_arguments_valid(brush, ink, style) || !in_bitmap(store.frame_bitmap, x, y)) return;
    const int pointer_x = view.frame_mouse_x;
    const int pointer_y = view.frame_mouse_y;
    const UndoableOperation step;
    if (brush >= TOOL_COUNT) return;
    const OperationScope scope(show_waiting_frame);
    const StrokeRender render = tools[brush].render;
    if (render) render({x, y, brush, ink, style, pointer_x, pointer_y});
}

void draw_closed_outline()
{
    Points& points = tool_input.point_list;
    if (!points.empty()) points.push_back(Point{points.front()});
    draw_to_frame(0, 0, current_tool(), current_ink(), toolbox.brush_tip);
}

} // namespace kelu
