// SPDX-License-Identifier: MIT
// The table of tools: one row each.
#pragma once

#include "draw/operation.h"
#include "draw/tool_options.h"
#include "runtime/toolbox.h"
#include <array>

namespace kelu {

/// One tool: what the menus show, and its work.
struct ToolRow : DrawChoice {
    int (*gather)();     ///< collects the tool's input on a press: 1 when the tool ran, 0 when it was cancelled
    StrokeRender render; ///< walks the geometry inside `draw_to_frame`; null: nothing to walk
};

/// Rows by tool id, 0 to TOOL_COUNT - 1.
extern const Table<ToolRow, TOOL_COUNT> tools;
/// The row of a tool, or null for a number that is no tool.
const ToolRow* find_tool(int tool);

/// Runs the current tool for a press of the left button on the frame. Returns 1 when it ran, 0 when it was cancelled.
int tool_dispatch();

/// Puts the options of a fresh workspace into the tables of tools and inks and into the panels of the shape tools.
void apply_default_options();

} // namespace kelu
