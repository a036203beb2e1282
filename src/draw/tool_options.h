// Options of the tools, as the geometries read them.
#pragma once

#include "runtime/toolbox.h"

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

/// Option of a tool, brought into 0 to `highest`: the tables come from files.
int tool_option(int tool, int column, int highest);
/// True when the shape is to be drawn filled.
bool tool_filled(int tool);

} // namespace kelu
