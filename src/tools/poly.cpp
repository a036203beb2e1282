// SPDX-License-Identifier: MIT
// The corners of a polygon.
#include "tools/poly.h"

#include "draw/preview.h"
#include "draw/tool_input.h"
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
    do {
        if (left_down()) take_corner();
    } while (run_pass(passes::plain) && !right_down());
    wait_right_release();
    const bool finished = !ending();
    if (finished) draw_closed_outline();
    free_point_list();
    return finished ? 1 : 0;
}

} // namespace kelu
