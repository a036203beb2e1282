// SPDX-License-Identifier: MIT
// Panels, boxes and labels.
#include "gui/panels.h"

#include "gui/scheme.h"
#include "gui/slots.h"
#include "gui/text.h"
#include "runtime/frame_snapshot.h"
#include "runtime/pixels.h"
#include "runtime/random.h"
#include "runtime/sheets.h"
#include "runtime/shows.h"
#include <algorithm>
#include <cstring>

namespace kelu {
namespace {

constexpr int dashed_frame = 2;   // value of `frame_state`
constexpr int character_w = 6;    // advance of the wide font
constexpr int half_character = 3; // pixels
constexpr int frame_room = 2;     // pixels of a slot's width that its frame takes
constexpr int plate_h = 7;

/// A slot's rectangle, read once.
struct Box {
    int x, y, w, h;
};

Box box_of(int slot) { return {gui.x[slot], gui.y[slot], gui.w[slot], gui.h[slot]}; }

int random_grey()
{
    something_shows(); // another one in the next frame
    const int v = rnd(192) + 32;
    return pack_rgb(v, v, v);
}

void draw_inner_corners(const Box& box, int colour)
{
    put_dot(box.x + 1, box.y + 1, colour);
    put_dot(box.x + box.w - 2, box.y + 1, colour);
    put_dot(box.x + 1, box.y + box.h - 2, colour);
    put_dot(box.x + box.w - 2, box.y + box.h - 2, colour);
}

void fill_inside(const Box& box, int fill, int opacity)
{
    if (opacity == solid_opacity) {
        fill_area(box.x + 1, box.y + 1, box.x + box.w - 2, box.y + box.h - 2, fill);
    } else {
        blend_rect(gui_canvas, box.x + 1, box.y + 1, box.w - 2, box.h - 2, fill, opacity);
    }
}

} // namespace

void fill_area(int x1, int y1, int x2, int y2, int colour)
{
    if (x1 <= x2 && y1 <= y2) rectfill(gui_canvas, x1, y1, x2, y2, colour);
}

void put_dot(int x, int y, int colour)
{
    if (in_bitmap(gui_canvas, x, y)) row(gui_canvas, y)[x] = colour;
}

void draw_dashed_rect(int x1, int y1, int x2, int y2)
{
    if (!sheets.hatch_tile) return;
    shows.dashes = 1;
    drawing_mode(DRAW_MODE_COPY_PATTERN, sheets.hatch_tile, frame_snapshot.dash_phase, 0);
    rect(gui_canvas, x1, y1, x2, y2, 0);
    solid_mode();
}

void draw_slot_dashes(int slot)
{
    const Box box = box_of(slot);
    draw_dashed_rect(box.x, box.y, box.x + box.w - 1, box.y + box.h - 1);
}

int draw_panel(int slot, int fill, int border, int opacity)
{
    fill_inside(box_of(slot), fill, opacity);
    const int grey = border == random_border ? random_grey() : 0;
    if (gui.frame_state[slot] == dashed_frame) {
        draw_slot_dashes(slot);
    } else {
        draw_border(slot, border == random_border ? grey : border);
    }
    return grey;
}

void draw_own_panel(int slot) { draw_panel(slot, gui.colour[slot], menu_scheme.scheme_border, solid_opacity); }

void draw_border(int slot, int colour)
{
    const Box box = box_of(slot);
    const int right = box.x + box.w - 1;
    const int bottom = box.y + box.h - 1;
    fill_area(box.x, box.y + 2, box.x, bottom - 2, colour);
    fill_area(right, box.y + 2, right, bottom - 2, colour);
    fill_area(box.x + 2, box.y, right - 2, box.y, colour);
    fill_area(box.x + 2, bottom, right - 2, bottom, colour);
    draw_inner_corners(box, colour);
}

void draw_box(int slot, int fill, int border, int opacity)
{
    const Box box = box_of(slot);
    const int right = box.x + box.w;
    const int bottom = box.y + box.h;
    if (opacity == solid_opacity) {
        fill_area(box.x + 1, box.y + 1, right - 1, bottom - 1, fill);
    } else {
        blend_rect(gui_canvas, box.x + 1, box.y + 1, box.w - 1, box.h - 1, fill, opacity);
    }
    if (gui.stripes[slot] != 0 && box.h > 5) {
        const int colour = palette_color[gui.stripes[slot] & (PAL_SIZE - 1)];
        for (int y = box.y + 3; y <= bottom - 3; y += 2)
            fill_area(box.x + 3, y, right - 3, y, colour);
    }
    if (gui.frame_state[slot] == dashed_frame) {
        draw_dashed_rect(box.x, box.y, right, bottom);
    } else {
        rect(gui_canvas, box.x, box.y, right, bottom, border);
    }
}

void draw_corner_dots(int slot, int x, int y, int colour)
{
    draw_inner_corners({x, y, gui.w[slot], gui.h[slot]}, colour == random_border ? random_grey() : colour);
}

bool look_hovered(int slot)
{
    const Box box = box_of(slot);
    const int x = frame_snapshot.mouse_x;
    const int y = frame_snapshot.mouse_y;
    return x >= box.x && x < box.x + box.w - 1 && y >= box.y && y < box.y + box.h - 1;
}

void draw_centred(int slot, const char* text, int colour_set, int opacity)
{
    const int length = static_cast<int>(std::strlen(text));
    const bool fits = character_w * length <= gui.w[slot] - frame_room;
    set_text({.slot = fits ? FONT_WIDE : FONT_NARROW,
              .colour_set = colour_set,
              .mode = opacity > 0 ? 1 : 0,
              .opacity = opacity});
    const int half = fits ? half_character * length : text_width(text) / 2;
    draw_text(gui_canvas, gui.x[slot] + 1 + gui.w[slot] / 2 - half, gui.y[slot] + 2, text);
}

void draw_plate(int slot, const char* text, int colour)
{
    const int length = static_cast<int>(std::strlen(text));
    if (length == 0) return;
    const int left = gui.x[slot] + 1 + gui.w[slot] / 2 - half_character * length;
    fill_area(left - 2, gui.y[slot] + 1, left + character_w * length, gui.y[slot] + plate_h, colour);
}

void draw_at_left(int slot, const char* text, int colour_set)
{
    set_plain_text(FONT_WIDE, colour_set);
    draw_text(gui_canvas, gui.x[slot] + 3, gui.y[slot] + 2, text);
}

void draw_characters(int x, int y, const char* text, int count, int colour_set)
{
    set_plain_text(FONT_WIDE, colour_set);
    for (int i = 0; i < count && text[i] != 0; ++i) {
        const char single[] = {text[i], 0};
        draw_text(gui_canvas, x + character_w * i, y, single);
    }
}

} // namespace kelu
