// SPDX-License-Identifier: MIT
// The shift of one colour, and of an area.
#include "colour/tint.h"

#include "base/run_state.h"
#include "colour/spaces.h"
#include "runtime/preferences.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include <algorithm>
#include <cstdlib>

namespace kelu {
namespace {

constexpr double least_shown = 0.001; ///< lightness and saturation below it count as 0

double held(double value) { return value < least_shown ? 0 : std::min(value, 255.0); }

double turned(double hue, int shift)
{
    const int a = std::abs(shift);
    if (a < 128) {
        hue += shift;
    } else {
        hue += shift > 0 ? a - 255 : 255 - a;
    }
    if (hue < 0) hue += 255;
    if (hue > 255) hue -= 255;
    return hue;
}

/// A rectangle of a bitmap; empty when right or bottom lie before left or top.
struct Area {
    int left, top, right, bottom; ///< right and bottom just outside
};

Area shown_area(const BITMAP* bitmap)
{
    const int margin = view.zoom > 1 ? preferences.zoom_preview_size * 20 + 30 : 0;
    const int x = view.pan_x - margin;
    const int y = view.pan_y - margin;
    return {std::max(x, 0), std::max(y, 0), std::min(x + logical_w, bitmap->w), std::min(y + logical_h, bitmap->h)};
}

} // namespace

int tinted(int color, const TintShift& shift)
{
    const Hls hls = rgb_to_hls(color);
    return pack_rgb(
        hls_to_rgb({turned(hls.h, shift.hue), held(hls.l + shift.lightness), held(hls.s + shift.saturation)}));
}

void tint_frame(bool whole, bool ignore_mask, BITMAP* source, BITMAP* dest, const TintShift& shift)
{
    const Area area = whole ? Area{0, 0, source->w, source->h} : shown_area(source);
    if (shift == TintShift{}) {
        blit(source, dest, area.left, area.top, area.left, area.top, area.right - area.left, area.bottom - area.top);
        return;
    }
    const int mask = toolbox.mask_color;
    // Pictures have runs of one colour: the last result often serves again.
    int last = 0;
    int last_tinted = tinted(last, shift);
    for (int y = area.top; y < area.bottom; ++y) {
        const int* from = row(source, y);
        int* to = row(dest, y);
        for (int x = area.left; x < area.right; ++x) {
            if (ignore_mask && from[x] == mask) {
                to[x] = mask;
                continue;
            }
            if (from[x] != last) {
                last = from[x];
                last_tinted = tinted(last, shift);
            }
            to[x] = last_tinted;
        }
    }
}

} // namespace kelu
