// SPDX-License-Identifier: MIT
// Selection by colour alone.
#include "draw/replace.h"

#include "draw/tool_options.h"
#include "draw/undo.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include <array>

namespace kelu {
namespace {

/// True when a channel of the two colours differs by more than the tolerance.
constexpr bool foreign(int a, int b, int tolerance) { return !colors_close(a, b, tolerance + 1); }

/// The colour under the press as the operation begins: that of the frame, which nothing has touched yet.
int clicked_color(const Stroke& stroke) { return row(store.frame_bitmap, stroke.y)[stroke.x]; }

void stamp_pixel(int x, int y, const Stroke& stroke)
{
    stamp_tip(x, y, stroke.brush, stroke.ink, no_tip);
    keep_picture_alive();
}

} // namespace

void walk_color(BITMAP* source, int color, int tolerance, PointVisit visit)
{
    for (int y = 0; y < source->h; ++y) {
        const int* const line = row(source, y);
        for (int x = 0; x < source->w; ++x)
            if (colors_close(color, line[x], tolerance)) visit(x, y);
    }
}

void walk_rims(BITMAP* source, int color, int tolerance, PointVisit visit)
{
    struct Step {
        int x, y;
    };
    constexpr std::array<Step, 4> neighbours{{{0, -1}, {1, 0}, {0, 1}, {-1, 0}}};
    for (int y = 0; y < source->h; ++y) {
        const int* const line = row(source, y);
        for (int x = 0; x < source->w; ++x) {
            if (!colors_close(color, line[x], tolerance)) continue;
            for (const Step step : neighbours) {
                if (!in_bitmap(source, x + step.x, y + step.y)) continue;
                if (foreign(color, row(source, y + step.y)[x + step.x], tolerance)) visit(x, y);
            }
        }
    }
}

void render_replace(const Stroke& stroke)
{
    BITMAP* const source = stroke_source();
    walk_color(source, clicked_color(stroke), tool_option(TOOL_SEP, options::tolerance),
               [&](int x, int y) { stamp_pixel(x, y, stroke); });
}

void render_edge(const Stroke& stroke)
{
    BITMAP* const source = stroke_source();
    walk_rims(source, clicked_color(stroke), tool_option(TOOL_EDGE, options::tolerance),
              [&](int x, int y) { stamp_pixel(x, y, stroke); });
}

} // namespace kelu
