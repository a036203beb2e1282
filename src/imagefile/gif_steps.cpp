// SPDX-License-Identifier: MIT
// Changed rectangles and disposals.
#include "imagefile/gif_steps.h"

namespace kelu {
namespace {

constexpr int opaque = static_cast<int>(0xff000000U);
constexpr unsigned least_opaque_alpha = 128;

bool is_erased(int before, int after) { return before != 0 && after == 0; }

void clear_area(BITMAP* canvas, const PictureArea& area)
{
    rectfill(canvas, area.left, area.top, area.right - 1, area.bottom - 1, 0);
}

/// Pixels of `next` that have to be painted over a canvas whose `cleared` rectangle is empty.
long pixels_to_paint(BITMAP* canvas, BITMAP* next, const PictureArea& cleared)
{
    long count = 0;
    for (int y = 0; y < next->h; ++y) {
        const int* from = row(canvas, y);
        const int* to = row(next, y);
        const bool crosses = y >= cleared.top && y < cleared.bottom;
        for (int x = 0; x < next->w; ++x) {
            const bool empty = crosses && x >= cleared.left && x < cleared.right;
            count += (empty ? 0 : from[x]) != to[x];
        }
    }
    return count;
}

} // namespace

void make_gif_canvas(BITMAP* picture)
{
    for (int y = 0; y < picture->h; ++y) {
        int* pixels = row(picture, y);
        for (int x = 0; x < picture->w; ++x)
            pixels[x] = static_cast<unsigned>(pixels[x]) >> 24 < least_opaque_alpha ? 0 : pixels[x] | opaque;
    }
}

GifStep plan_gif_step(BITMAP* shown, BITMAP* target, BITMAP* next, bool first)
{
    GifStep step;
    step.area = first ? PictureArea{0, 0, target->w, target->h} : changed_area(shown, target);
    if (!next) return step;
    const PictureArea erased = area_where(target, next, is_erased);
    if (erased.pixels() == 0) return step;
    const PictureArea cleared = step.area.with(erased);
    const bool can_come_back = !first && area_where(shown, next, is_erased).pixels() == 0;
    const long by_clearing = cleared.pixels() + pixels_to_paint(target, next, cleared);
    if (can_come_back && step.area.pixels() + pixels_to_paint(shown, next, {}) < by_clearing)
        step.disposal = GIF_BRING_BACK;
    else
        step = {cleared, GIF_CLEAR};
    return step;
}

void end_gif_step(Bitmap& shown, Bitmap& target, const GifStep& step)
{
    if (step.disposal == GIF_BRING_BACK) return;
    std::swap(shown, target);
    if (step.disposal == GIF_CLEAR) clear_area(shown, step.area);
}

} // namespace kelu
