// SPDX-License-Identifier: MIT
// The rows of the tools, and the way from a press to one of them.
#include "tools/tools.h"

#include "draw/fill.h"
#include "draw/inks.h"
#include "draw/outline.h"
#include "draw/preview.h"
#include "draw/replace.h"
#include "draw/tool_input.h"
#include "draw/two_point_shapes.h"
#include "loop/tool_loop.h"
#include "runtime/input.h"
#include "runtime/shape_settings.h"
#include "tools/freehand_shape.h"
#include "tools/move.h"
#include "tools/operation.h"
#include "tools/oval_tool.h"
#include "tools/poly.h"
#include "tools/polygon_tool.h"
#include "tools/spiral_tool.h"
#include "tools/spline_tool.h"
#include "tools/stroke_tools.h"
#include "tools/supershape_tool.h"
#include "tools/text_tool.h"
#include "tools/two_point_tool.h"

namespace kelu {
namespace {

void draw_at(Point at) { draw_to_frame(at.x, at.y, current_tool(), current_ink(), toolbox.brush_tip); }

/// The pixel tools: the press itself is all they need, as it is.
int gather_press()
{
    sample_press();
    draw_at({pointer.press_x, pointer.press_y});
    return 1;
}

int gather_snapped_press()
{
    sample_press();
    draw_at(snapped_press());
    return 1;
}

/// The tools that go on by themselves from a first node.
template <void (*Tool)()>
int gather_node()
{
    sample_press();
    tool_input.tool_nodes[0] = snapped_press();
    wait_left_release();
    Tool();
    return 1;
}

constexpr ToolRow tool_row(int id, std::span<const DrawOption> options, int (*gather)(), StrokeRender render = nullptr)
{
    return {{id, first_tool_name + id, id, options}, gather, render};
}

using namespace option_lists;

constexpr Table<ToolRow, TOOL_COUNT> rows{
    tool_row(TOOL_NONE, none, nullptr),
    tool_row(TOOL_BOX, shape, gather_two_points, render_box),
    tool_row(TOOL_CIRCLE, shape, gather_two_points, render_circle),
    tool_row(TOOL_DRAW, none, gather_press, render_draw),
    tool_row(TOOL_DRIZ, dabs, gather_press, render_driz),
    tool_row(TOOL_EDGE, tolerance, gather_press, render_edge),
    tool_row(TOOL_FILL, tolerance, gather_press, render_fill),
    tool_row(TOOL_LINE, none, gather_two_points, render_line),
    tool_row(TOOL_MOVE, option_lists::move, gather_node<move_tool>),
    tool_row(TOOL_OVAL, shape, gather_oval),
    tool_row(TOOL_POLY, shape, poly_tool, render_point_list),
    tool_row(TOOL_RPOLY, panel_polygon, gather_node<regular_polygon_tool>, render_point_list),
    tool_row(TOOL_SEP, tolerance, gather_press, render_replace),
    tool_row(TOOL_FSHAPE, shape, freehand_shape_tool, render_point_list),
    tool_row(TOOL_SSHAPE, shape, gather_node<supershape_tool>, render_point_list),
    tool_row(TOOL_SPIRAL, none, gather_node<spiral_tool>, render_point_list),
    tool_row(TOOL_SPLINE, option_lists::spline, gather_spline, render_point_list),
    tool_row(TOOL_SPRAY, spray, gather_snapped_press, render_spray),
    tool_row(TOOL_TEXT, text, gather_node<text_tool>),
};

static_assert(in_order(rows), "a row of a tool is missing, or out of the order of ToolId");

/// The panels open with plain shapes of a middling size, the superformula with one that shows what it can do.
constexpr ShapeSettings initial_shapes{
    .rpoly_settings = {.angle = 0, .radius = 50, .sides = 3},
    .spiral_settings = {.angle = 0, .scale = 100, .wraps = 5, .spread = 0, .flip = 0},
    .supershape_settings = {.degrees = 0, .n1 = 60, .n2 = 100, .n3 = 100, .arms = 1, .magnitude = 100},
};

} // namespace

const Table<ToolRow, TOOL_COUNT> tools = rows;

const ToolRow* find_tool(int tool) { return tool >= 0 && tool < TOOL_COUNT ? &tools[tool] : nullptr; }

int tool_dispatch()
{
    tool_input.tool_nodes = {};
    const ToolRow* chosen = find_tool(current_tool());
    return chosen && chosen->gather ? chosen->gather() : 0;
}

void apply_default_options()
{
    for (const ToolRow& row : tools)
        set_initial_options(toolbox.tool_table, row);
    set_initial_ink_options();
    shape_settings = initial_shapes;
}

} // namespace kelu
