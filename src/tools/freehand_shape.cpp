// SPDX-License-Identifier: MIT
// The outline drawn freehand.
#include "tools/freehand_shape.h"

#include "draw/operation.h"
#include "draw/preview.h"
#include "draw/stroke.h"
#include "draw/tool_input.h"
#include "loop/input_turn.h"
#include "loop/tool_loop.h"
#include "runtime/input.h"
#include "runtime/toolbox.h"
#include "tools/operation.h"

namespace kelu {

int freehand_shape_tool()
{
    constexpr std::size_t most_points = 9997;
    free_point_list();
    const PreviewScope shown(TOOL_FSHAPE);
    sample_press();
    Point last{stroke_position.stroke_last_x, stroke_position.stroke_last_y};
    const auto take = [&last](Point sample) {
        append_sample(tool_input.point_list, last, sample);
        last = sample;
        stroke_position = {last.x, last.y};
    };
    take(snapped_press());
    while (run_pass(passes::plain)) {
        for (const Point at : pointer_path())
            take(snapped(at));
        if (!left_down() || tool_input.point_list.size() > most_points) break;
    }
    const bool finished = !ending();
    if (finished) draw_closed_outline();
    free_point_list();
    return finished ? 1 : 0;
}

} // namespace kelu
