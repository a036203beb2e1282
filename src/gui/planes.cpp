// SPDX-License-Identifier: MIT
// Colour planes: one channel fixed, the other two running across and down.
#include "gui/planes.h"

#include "base/run_state.h"
#include "colour/spaces.h"
#include "gui/kinds.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "runtime/frame_flags.h"
#include "runtime/pixels.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int vga_scale = 4; // a slider of 0 to 63 onto 0 to 252
constexpr double least_saturation = 0.01;

using Channels = std::array<int, 3>;

/// The three sliders that `items` names.
Channels slider_values(int slot)
{
    Channels values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int slider = gui.items[slot][i];
        if (slider >= 0 && slider < gui_slots) values[i] = gui.scroll_value[slider];
    }
    return values;
}

/// Colour of the pixel (x, y) of a w x h plane; a and b are x and y on the scale of 256.
int plane_pixel(int kind, const Channels& channels, int x, int y, int w, int h)
{
    const int a = static_cast<int>(256.0 / w * x);
    const int b = static_cast<int>(256.0 / h * y);
    switch (kind) {
    case KIND_VGA_PLANE:
        return pack_rgb(channels[0] * vga_scale & 255, a, b);
    case KIND_RGB_PLANE:
        return pack_rgb(channels[0] & 255, a, b);
    case KIND_HLS_PLANE:
        return pack_rgb(hls_to_rgb({double(a), double(b), std::max(double(channels[2]), least_saturation)}));
    default:
        return pack_rgb(hsv_to_rgb({double(x) / w, channels[1] / 256.0, double(y) / h}));
    }
}

void renew_picture(int kind, const Channels& channels, int w, int h)
{
    if (plane_cache.picture.width() != w || plane_cache.picture.height() != h) plane_cache.picture = Bitmap(w, h);
    if (!plane_cache.picture) return;
    for (int y = 0; y < h; ++y) {
        int* pixels = row(plane_cache.picture, y);
        for (int x = 0; x < w; ++x)
            pixels[x] = plane_pixel(kind, channels, x, y, w, h);
    }
    plane_cache.kind = kind;
    plane_cache.channels = channels;
    plane_cache.renders += 1;
}

/// A cross of five pixels that shows on any colour.
void draw_cross(int slot, const Channels& channels, const PlaneAxes& axes, int w, int h)
{
    const int x = 1 + static_cast<int>(w / 256.0 * (channels[axes.across] * axes.scale));
    const int y = 1 + static_cast<int>(h / 256.0 * (channels[axes.down] * axes.scale));
    const int under = row(plane_cache.picture, std::clamp(y - 1, 0, h - 1))[std::clamp(x - 1, 0, w - 1)];
    const bool dark = red_of(under) * 3 + green_of(under) * 6 + blue_of(under) < 1280;
    const int colour = dark ? fixed_colours.white : fixed_colours.black;
    constexpr int arms[5][2] = {{0, 0}, {1, 0}, {-1, 0}, {0, 1}, {0, -1}};
    for (const auto& [dx, dy] : arms) {
        const int px = x + dx;
        const int py = y + dy;
        if (px >= 1 && px <= w && py >= 1 && py <= h) put_dot(gui.x[slot] + px, gui.y[slot] + py, colour);
    }
}

} // namespace

PlaneAxes plane_axes(int kind)
{
    switch (kind) {
    case KIND_VGA_PLANE:
        return {1, 2, vga_scale};
    case KIND_RGB_PLANE:
        return {1, 2, 1};
    case KIND_HLS_PLANE:
        return {0, 1, 1};
    default:
        return {0, 2, 1};
    }
}

void draw_plane(int slot, const Look&)
{
    const int kind = gui.kind[slot];
    const int w = gui.w[slot] - 2;
    const int h = gui.h[slot] - 2;
    const Channels channels = slider_values(slot);
    const bool current = plane_cache.picture && plane_cache.picture.width() == w && plane_cache.picture.height() == h &&
                         plane_cache.kind == kind && plane_cache.channels == channels;
    if (!current) renew_picture(kind, channels, w, h);
    if (!plane_cache.picture) return;
    blit(plane_cache.picture, gui_canvas, 0, 0, gui.x[slot] + 1, gui.y[slot] + 1, w, h);
    if (frame_flags.clean_render == 0) draw_cross(slot, channels, plane_axes(kind), w, h);
    draw_border(slot, menu_scheme.scheme_border);
}

} // namespace kelu
