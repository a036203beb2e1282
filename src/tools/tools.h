// The table of tools: one row each.
#pragma once

#include "draw/operation.h"
#include "runtime/toolbox.h"
#include <array>

namespace kelu {

/// Columns of `tool_table` that several tools share.
enum ToolOption : int {
    OPTION_FILLED = 0,      ///< shapes: 1 draws them filled
    OPTION_TOLERANCE = 0,   ///< FILL, EDGE and SEP., 0 to 255
    OPTION_BRUSH_COLOR = 0, ///< MOVE: 1 leaves the brush colour behind, 0 the mask colour
    OPTION_CLOSED = 1,      ///< SPLINE: 1 joins the last node to the first
    OPTION_CURVE = 2,       ///< SPLINE, 0 straight to 100
    OPTION_ANTIALIAS = 0,   ///< TEXT: 1 draws it with soft edges
};

struct ToolRow {
    int id;
    int (*gather)();            ///< collects the tool's input on a press: 1 when the tool ran, 0 when it was cancelled
    StrokeRender render;        ///< walks the geometry inside `draw_to_frame`; null: nothing to walk
    std::array<int, 3> initial; ///< columns 0 to 2 of its options in a fresh workspace
};

/// Rows by tool id, 0 to TOOL_COUNT - 1.
extern const std::array<ToolRow, TOOL_COUNT> tools;

/// Option of a tool, brought into 0 to `highest`: the tables come from files.
int tool_option(int tool, int column, int highest);
/// True when the shape is to be drawn filled.
bool tool_filled(int tool);

/// Runs the current tool for a press of the left button on the frame. Returns 1 when it ran, 0 when it was cancelled.
int tool_dispatch();

/// Puts the options of a fresh workspace into the tables of tools and inks and into the panels of the shape tools.
void apply_default_options();

} // namespace kelu
