// The corners of a polygon.
#include "tools/poly.h"

#include "draw/preview.h"
#include "draw/tool_input.h"
#include "loop/frame.h"
#include "loop/tool_loop.h"
#include "runtime/input.h"
#include "runtime/toolbox.h"
#include "tools/operation.h"

namespace kelu {
namespace {

void take_corner()
{
    sample_press();
    tool_input.point_list.push_back(snapped_press());
    wait_left_release();
}

} // namespace

int poly_tool()
{
    free_point_list();
    const PreviewScope shown(TOOL_POLY);
    take_corner();
    while (!right_down() && !leaving()) {
        if (left_down()) take_corner();
        run_frame(0);
    }
    wait_right_release();
    const bool finished = !leaving();
    if (finished) draw_closed_outline();
    free_point_list();
    return finished ? 1 : 0;
}

} // namespace kelu
