// SPDX-License-Identifier: MIT
// Kinds that show pictures: of a file, of the whole frame, of a thumbnail, of the frame round the pointer.
#include "gui/previews.h"

#include "base/run_state.h"
#include "gui/painters.h"
#include "gui/panels.h"
#include "gui/scheme.h"
#include "gui/slots.h"
#include "gui/text.h"
#include "runtime/frame_snapshot.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/shows.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include <algorithm>
#include <array>
#include <cstdio>

namespace kelu {
namespace {

constexpr int nail_side = 40; // of a cell of the thumbnail sheet
constexpr int nails_per_row = 10;
constexpr int middle_nail = 17; // slot of the present frame in the frame jump
constexpr int no_frame = -1;
constexpr int layout_w = 80, layout_h = 59; // of a placement preview
constexpr int old_size_opacity = 200;

/// One axis of the zoom preview: where the square of `side` pixels lies in the frame, held inside it, and where a frame
/// that is smaller lies in the square.
struct Span {
    int from, count, at;
};

Span span_round(int center, int side, int frame_size)
{
    if (frame_size < side) return {0, frame_size, (side - frame_size) / 2};
    return {std::clamp(center - side / 2, 0, frame_size - side), side, 0};
}

/// One axis of a placement: two sizes scaled so that the larger one fills `room`, and their places by the anchor's
/// column or row of 0 to 2.
struct Placement {
    int old_at, old_size, new_at, new_size;
};

Placement place_axis(int old_size, int new_size, int room, int anchor)
{
    const int larger = std::max({old_size, new_size, 1});
    const int shown_old = std::max(1, old_size * room / larger);
    const int shown_new = std::max(1, new_size * room / larger);
    return {(room - shown_old) * anchor / 2, shown_old, (room - shown_new) * anchor / 2, shown_new};
}

void draw_nail_number(int slot, int frame, int colour_set)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d", frame);
    set_outlined_text(FONT_NARROW, colour_set);
    draw_text(gui_canvas, gui.x[slot] + 32, gui.y[slot] + 3, text.data());
}

void blend_onion(int x, int y, const Span& across, const Span& down)
{
    if (!view.onion_on || !store.onion_bitmap) return;
    Bitmap part(across.count, down.count, mask_magenta);
    if (!part) return;
    blit(store.onion_bitmap, part, across.from, down.from, 0, 0, across.count, down.count);
    blend_sprite(part, gui_canvas, x, y, view.onion_opacity);
}

} // namespace

void draw_preview(int slot, const Look&)
{
    draw_own_panel(slot);
    if (screen_state.preview_bitmap)
        blit(screen_state.preview_bitmap, gui_canvas, 0, 0, gui.x[slot] + 1, gui.y[slot] + 1,
             screen_state.preview_bitmap.width(), gui.h[slot] - 2);
    draw_corner_dots(slot, gui.x[slot], gui.y[slot], menu_scheme.scheme_border);
}

void draw_quick_pan(int slot, const Look&)
{
    const int x = gui.x[slot];
    const int y = gui.y[slot];
    const int right = x + gui.w[slot] - 1;
    const int bottom = y + gui.h[slot] - 1;
    const int border = menu_scheme.scheme_border;
    BITMAP* picture = quick_pan_picture.quickpan_bitmap;
    if (picture) blend_sprite(picture, gui_canvas, x + 1, y + 1, std::clamp(int(preferences.quickpan_opacity), 1, 254));
    rect(gui_canvas, x, y, right, bottom, border);
    if (!picture || !store.frame_bitmap) return;
    // The part of the frame that the screen shows, round the pointer.
    const int w = static_cast<int>(picture->w / (static_cast<double>(store.frame_bitmap->w) / logical_w));
    const int h = static_cast<int>(picture->h / (static_cast<double>(store.frame_bitmap->h) / logical_h));
    const int left = frame_snapshot.mouse_x - w / 2;
    const int top = frame_snapshot.mouse_y - h / 2;
    set_clip_rect(gui_canvas, x + 1, y + 1, right - 1, bottom - 1);
    draw_dashed_rect(left, top, left + w, top + h);
    set_clip_rect(gui_canvas, 0, 0, gui_canvas->w - 1, gui_canvas->h - 1);
}

void draw_frame_nail(int slot, const Look&)
{
    const int x = gui.x[slot];
    const int y = gui.y[slot];
    const int frame = gui.colour[slot];
    if (frame == no_frame) {
        draw_panel(slot, fixed_colours.black, menu_scheme.scheme_shadow, solid_opacity);
        return;
    }
    const bool tagged = gui.params[slot][0] != 0;
    const bool highlighted = tagged || slot == middle_nail;
    const int border = highlighted ? menu_scheme.scheme_highlight_fore : menu_scheme.scheme_border;
    draw_panel(slot, menu_scheme.scheme_background, border, solid_opacity);
    if (store.nail_sheet)
        blit(store.nail_sheet, gui_canvas, frame % nails_per_row * nail_side, frame / nails_per_row * nail_side, x + 1,
             y + 1, nail_side, nail_side);
    if (highlighted) {
        shows.pulse = 1;
        blend_rect(gui_canvas, x + 1, y + 1, nail_side, nail_side, fixed_colours.white, frame_snapshot.pulse / 2);
    }
    draw_nail_number(slot, frame, tagged ? SET_FRAME : SET_MESSAGE);
    draw_corner_dots(slot, x, y, border);
    if (gui.list_items[0][0] == slot) draw_slot_dashes(slot);
}

void draw_sheet_preview(int slot, const Look&)
{
    draw_own_panel(slot);
    const auto& record = gui.items[slot];
    const int anchor = std::clamp(int(record[0]), 0, 8);
    const Placement across = place_axis(record[1], record[3], layout_w, anchor % 3);
    const Placement down = place_axis(record[2], record[4], layout_h, anchor / 3);
    const int x = gui.x[slot] + 1;
    const int y = gui.y[slot] + 1;
    fill_area(x + across.new_at, y + down.new_at, x + across.new_at + across.new_size - 1,
              y + down.new_at + down.new_size - 1, menu_scheme.scheme_highlight_fore);
    blend_rect(gui_canvas, x + across.old_at, y + down.old_at, across.old_size, down.old_size,
               menu_scheme.scheme_highlight_back, old_size_opacity);
    draw_corner_dots(slot, gui.x[slot], gui.y[slot], menu_scheme.scheme_border);
}

void draw_zoom_preview(int slot, const Look&)
{
    draw_own_panel(slot);
    BITMAP* frame = store.frame_bitmap;
    if (!frame) return;
    const int side = gui.row_width[slot] + 1;
    const int mouse_x = frame_snapshot.frame_mouse_x;
    const int mouse_y = frame_snapshot.frame_mouse_y;
    const Span across = span_round(mouse_x, side, frame->w);
    const Span down = span_round(mouse_y, side, frame->h);
    const int x = gui.x[slot] + 2 + across.at;
    const int y = gui.y[slot] + 2 + down.at;
    blit(frame, gui_canvas, across.from, down.from, x, y, across.count, down.count);
    blend_onion(x, y, across, down);
    if (in_bitmap(frame, mouse_x, mouse_y))
        put_dot(x + mouse_x - across.from, y + mouse_y - down.from, toolbox.brush_color);
}

} // namespace kelu
