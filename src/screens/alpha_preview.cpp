// SPDX-License-Identifier: MIT
// Only what the screen can show is blended, and again when the view moves, so that large frames come up at once.
#include "screens/alpha_preview.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/point_list.h"
#include "loop/pass.h"
#include "runtime/frame_picture.h"
#include "runtime/hotkeys.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "screens/frame_loan.h"
#include "workspace/merged.h"
#include <algorithm>
#include <optional>

namespace kelu {
namespace {

constexpr int opaque = 255;

/// The two pictures of the frame by role, and the one that shows.
struct Pictures {
    BITMAP *color, *alpha, *shown;
};

/// Corner of the part that may show: the view's, with room for the square of the zoom preview.
Point corner_of_part()
{
    const int margin = view.zoom > 1 ? preferences.zoom_preview_size * 20 + 30 : 0;
    return {view.pan_x - margin, view.pan_y - margin};
}

void blend_part(const Pictures& pictures, Point corner)
{
    const int x0 = std::max(corner.x, 0);
    const int y0 = std::max(corner.y, 0);
    const int x1 = std::min(corner.x + logical_w, pictures.shown->w);
    const int y1 = std::min(corner.y + logical_h, pictures.shown->h);
    paint_backdrop(pictures.shown, view.backdrop, x0, y0, x1, y1);
    for (int y = y0; y < y1; ++y) {
        const int* color = row(pictures.color, y);
        const int* alpha = row(pictures.alpha, y);
        int* shown = row(pictures.shown, y);
        for (int x = x0; x < x1; ++x) {
            const int opacity = red_of(alpha[x]);
            if (opacity == opaque) {
                shown[x] = color[x];
            } else if (opacity > 0) {
                shown[x] = blend_pixel(shown[x], color[x], opacity);
            }
        }
    }
}

void run_preview(const Pictures& pictures)
{
    std::optional<Point> last;
    do {
        const Point corner = corner_of_part();
        if (corner != last) blend_part(pictures, corner);
        last = corner;
    } while (run_pass(passes::menu) && hotkey_test(ACTION_ALPHA_PREVIEW));
}

} // namespace

void preview_alpha()
{
    Bitmap shown(store.frame_bitmap.width(), store.frame_bitmap.height());
    if (!shown) {
        log_line("[ ERROR ] : No memory for a copy of the frame. Its alpha can't be previewed.");
        return;
    }
    const Pictures pictures{color_picture(), alpha_picture(), shown};
    paint_backdrop(shown, view.backdrop, 0, 0, shown.width(), shown.height());
    const FrameLoan loan(std::move(shown));
    run_preview(pictures);
}

} // namespace kelu
