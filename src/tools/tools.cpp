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
#include <algorithm>

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

constexpr ToolRow no_gather(int id) { return {id, nullptr, nullptr, {}}; }

constexpr std::array<int, 3> hollow{};
constexpr std::array<int, 3> close_colors{5};  ///< tolerance that takes a colour with its faint neighbours
constexpr std::array<int, 3> dabs{8, 32};      ///< radius, taper
constexpr std::array<int, 3> smooth{0, 0, 33}; ///< hollow, open, curve
constexpr std::array<int, 3> drops{32, 16};    ///< density, radius
constexpr std::array<int, 3> antialiased{1};

constexpr std::array<ToolRow, TOOL_COUNT> rows{{
    no_gather(TOOL_NONE),
    {TOOL_BOX, gather_two_points, render_box, hollow},
    {TOOL_CIRCLE, gather_two_points, render_circle, hollow},
    {TOOL_DRAW, gather_press, render_draw, {}},
    {TOOL_DRIZ, gather_press, render_driz, dabs},
    {TOOL_EDGE, gather_press, render_edge, close_colors},
    {TOOL_FILL, gather_press, render_fill, close_colors},
    {TOOL_LINE, gather_two_points, render_line, {}},
    {TOOL_MOVE, gather_node<move_tool>, nullptr, {}},
    {TOOL_OVAL, gather_oval, nullptr, hollow},
    {TOOL_POLY, poly_tool, render_point_list, hollow},
    {TOOL_RPOLY, gather_node<regular_polygon_tool>, render_point_list, hollow},
    {TOOL_SEP, gather_press, render_replace, close_colors},
    {TOOL_FSHAPE, freehand_shape_tool, render_point_list, hollow},
    {TOOL_SSHAPE, gather_node<supershape_tool>, render_point_list, hollow},
    {TOOL_SPIRAL, gather_node<spiral_tool>, render_point_list, {}},
    {TOOL_SPLINE, gather_spline, render_point_list, smooth},
    {TOOL_SPRAY, gather_snapped_press, render_spray, drops},
    {TOOL_TEXT, gather_node<text_tool>, nullptr, antialiased},
}};

constexpr bool rows_in_order()
{
    for (int id = 0; id < TOOL_COUNT; ++id)
        if (rows[static_cast<std::size_t>(id)].id != id) return false;
    return true;
}
static_assert(rows_in_order());

/// The panels open with plain shapes of a middling size, the superformula with one that shows what it can do.
constexpr ShapeSettings initial_shapes{
    .rpoly_settings = {.angle = 0, .radius = 50, .sides = 3},
    .spiral_settings = {.angle = 0, .scale = 100, .wraps = 5, .spread = 0, .flip = 0},
    .supershape_settings = {.degrees = 0, .n1 = 60, .n2 = 100, .n3 = 100, .arms = 1, .magnitude = 100},
};

} // namespace

const std::array<ToolRow, TOOL_COUNT> tools = rows;

int tool_dispatch()
{
    tool_input.tool_nodes = {};
    const int tool = current_tool();
    if (tool < 0 || tool >= TOOL_COUNT) return 0;
    const ToolRow& chosen = tools[static_cast<std::size_t>(tool)];
    return chosen.gather ? chosen.gather() : 0;
}

void apply_default_options()
{
    for (const ToolRow& row : tools)
        std::ranges::copy(row.initial, toolbox.tool_table[static_cast<std::size_t>(row.id)].begin());
    set_initial_ink_options();
    shape_settings = initial_shapes;
}

} // namespace kelu
