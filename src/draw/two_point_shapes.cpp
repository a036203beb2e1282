// SPDX-License-Identifier: MIT
// The shapes between nodes 0 and 1.
#include "draw/two_point_shapes.h"

#include "base/maths.h"
#include "draw/span_fill.h"
#include "draw/tool_input.h"
#include "draw/tool_options.h"
#include "runtime/store.h"
#include <algorithm>

namespace kelu {
namespace {

void stamp_line(int x1, int y1, int x2, int y2)
{
    do_line(store.frame_bitmap, x1, y1, x2, y2, toolbox.brush_color, line_stamp);
}

} // namespace

void render_line(const Stroke&)
{
    const auto [from, to] = std::pair(tool_input.tool_nodes[0], tool_input.tool_nodes[1]);
    stamp_line(from.x, from.y, to.x, to.y);
}

void render_box(const Stroke& stroke)
{
    const auto [left, right] = std::minmax(tool_input.tool_nodes[0].x, tool_input.tool_nodes[1].x);
    const auto [top, bottom] = std::minmax(tool_input.tool_nodes[0].y, tool_input.tool_nodes[1].y);
    if (tool_filled(TOOL_BOX)) {
        const int end = std::min(bottom, store.frame_bitmap.height() - 1);
        for (int y = std::max(top, 0); y <= end; ++y)
            fill_span(left, right, y, stroke.ink);
        return;
    }
    stamp_line(left, top, right, top);
    stamp_line(left, bottom, right, bottom);
    stamp_line(left, top, left, bottom);
    stamp_line(right, top, right, bottom);
}

void render_circle(const Stroke& stroke)
{
    const Point center = tool_input.tool_nodes[0];
    const Point rim = tool_input.tool_nodes[1];
    const int radius = dist2(center.x, center.y, rim.x, rim.y);
    if (tool_filled(TOOL_CIRCLE)) {
        walk_disc(center, radius, store.frame_bitmap.height(),
                  [&](int left, int right, int y) { fill_span(left, right, y, stroke.ink); });
    } else {
        do_circle(store.frame_bitmap, center.x, center.y, radius, toolbox.brush_color, line_stamp);
    }
}

} // namespace kelu
