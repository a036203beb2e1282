// SPDX-License-Identifier: MIT
// Ink along the point list, or inside it.
#include "draw/outline.h"

#include "draw/span_fill.h"
#include "draw/tool_input.h"
#include "draw/tool_options.h"
#include "runtime/store.h"

namespace kelu {

void render_point_list(const Stroke& stroke)
{
    const int width = store.frame_bitmap.width();
    const int height = store.frame_bitmap.height();
    if (stroke.brush != TOOL_SPIRAL && tool_filled(stroke.brush)) {
        walk_polygon(tool_input.point_list, width, height,
                     [&](int left, int right, int y) { fill_span(left, right, y, stroke.ink); });
        return;
    }
    walk_outline(
        tool_input.point_list, width, height,
        [&](int x, int y) { stamp_tip(x, y, stroke.brush, stroke.ink, stroke.style); }, [] { keep_picture_alive(); });
}

} // namespace kelu
