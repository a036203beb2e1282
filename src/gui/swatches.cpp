// SPDX-License-Identifier: MIT
// Kinds that show a colour: cells, the two swatches, the spectrum, neighbours of a colour.
#include "colour/band.h"
#include "colour/spaces.h"
#include "gui/kinds.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "runtime/toolbox.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int banding_option = 2; // of the gradient inks
constexpr int hue_step = 4;       // on the scale of 255
constexpr int other_step = 10;

double held(double channel) { return std::clamp(channel, 0.0, 255.0); }

} // namespace

void draw_color_picking(int slot, const Look&) { draw_panel(slot, gui.colour[slot], random_border, solid_opacity); }

void draw_color_cell(int slot, const Look&)
{
    const int colour = gui.colour[slot];
    const bool chosen = colour == toolbox.brush_color;
    draw_panel(slot, colour, chosen ? menu_scheme.scheme_highlight_fore : menu_scheme.scheme_border, solid_opacity);
}

void draw_mask_swatch(int slot, const Look&)
{
    const int mask = toolbox.mask_color;
    gui.colour[slot] = mask;
    draw_own_panel(slot);
    // A small box distinguishes it from the brush colour; its corners are clipped.
    const int left = gui.x[slot] + 15;
    const int top = gui.y[slot] + 2;
    const int right = left + 3;
    const int bottom = top + 4;
    rect(gui_canvas, left, top, right, bottom, menu_scheme.scheme_border);
    fill_area(left + 1, top + 1, right - 1, bottom - 1, menu_scheme.scheme_background);
    put_dot(left, top, mask);
    put_dot(right, top, mask);
    put_dot(left, bottom, mask);
    put_dot(right, bottom, mask);
}

void draw_brush_swatch(int slot, const Look&)
{
    gui.colour[slot] = int(toolbox.brush_color);
    draw_own_panel(slot);
}

void draw_spectrum(int slot, const Look&)
{
    const int border = gui.params[slot][0];
    const int grey = draw_panel(slot, gui.colour[slot], border, solid_opacity);
    const int x = gui.x[slot];
    const int y = gui.y[slot];
    const int columns = gui.w[slot] - 2;
    const int ink = current_ink();
    const auto bands = static_cast<float>(toolbox.ink_table[ink][banding_option]);
    for (int i = 0; i < columns; ++i) {
        const float position = static_cast<float>(i) / static_cast<float>(columns);
        const int colour = spectrum_color(spectrum.spectrum_start, spectrum.spectrum_end, bands, position);
        fill_area(x + 1 + i, y + 1, x + 1 + i, y + 7, colour);
    }
    draw_corner_dots(slot, x, y, border == random_border ? grey : border);
}

void draw_variance(int slot, const Look&)
{
    Hls hls = rgb_to_hls(gui.params[slot][0]);
    const int step = gui.text_id[slot];
    switch (gui.kind[slot]) {
    case KIND_VARIANCE_HUE:
        hls.h = held(hls.h + hue_step * step);
        break;
    case KIND_VARIANCE_2:
        hls.l = held(hls.l + other_step * step);
        break;
    default:
        hls.s = held(hls.s + other_step * step);
        break;
    }
    gui.colour[slot] = pack_rgb(hls_to_rgb(hls));
    draw_own_panel(slot);
}

} // namespace kelu
