// The table of tools: one row each.
#pragma once

#include "draw/operation.h"
#include "runtime/toolbox.h"
#include <array>

namespace kelu {

struct ToolRow {
    int id;
    int (*gather)();     ///< collects the tool's input on a press: 1 when the tool ran, 0 when it was cancelled
    StrokeRender render; ///< walks the geometry inside `draw_to_frame`; null: nothing to walk
};

/// Rows by tool id, 0 to TOOL_COUNT - 1.
extern const std::array<ToolRow, TOOL_COUNT> tools;

/// Runs the current tool for a press of the left button on the frame. Returns 1 when it ran, 0 when it was cancelled.
int tool_dispatch();

} // namespace kelu
