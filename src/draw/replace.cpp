// Selection by colour alone.
#include "draw/replace.h"

#include "runtime/pixels.h"
#include <array>

namespace kelu {
namespace {

/// True when a channel of the two colours differs by more than the tolerance.
constexpr bool foreign(int a, int b, int tolerance) { return !colors_close(a, b, tolerance + 1); }

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

} // namespace kelu
