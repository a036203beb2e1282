// The rows of the tools, and the way from a press to one of them.
#include "draw/tools.h"

#include "runtime/input.h"

namespace kelu {
namespace {

/// The pixel tools: the press itself is all they need.
int gather_press()
{
    sample_press();
    draw_to_frame(pointer.press_x, pointer.press_y, current_tool(), current_ink(), toolbox.brush_tip);
    return 1;
}

constexpr ToolRow empty_row(int id) { return {id, nullptr, nullptr}; }

} // namespace

const std::array<ToolRow, TOOL_COUNT> tools = [] {
    std::array<ToolRow, TOOL_COUNT> rows{};
    for (int id = 0; id < TOOL_COUNT; ++id)
        rows[static_cast<std::size_t>(id)] = empty_row(id);
    rows[TOOL_DRAW] = {TOOL_DRAW, gather_press, render_draw};
    return rows;
}();

int tool_dispatch()
{
    const int tool = current_tool();
    if (tool < 0 || tool >= TOOL_COUNT) return 0;
    const ToolRow& chosen = tools[static_cast<std::size_t>(tool)];
    return chosen.gather ? chosen.gather() : 0;
}

} // namespace kelu
