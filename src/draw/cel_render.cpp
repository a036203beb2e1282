// SPDX-License-Identifier: MIT
// Previews draw with Allegro's sprites in view coordinates; commits draw the same into a picture of frame pixels, which
// goes through the ink. A commit never looks at the view: the timers may move it meanwhile.
#include "draw/cel_render.h"

#include "base/run_state.h"
#include "draw/dashes.h"
#include "draw/grid.h"
#include "draw/inks.h"
#include "gui/text.h"
#include "runtime/frame_snapshot.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace kelu {
namespace {

/// Both pictures of a rotation and of a preview: the cel turned about its middle, which lies at (x, y).
void draw_turned(BITMAP* target, int x, int y)
{
    BITMAP* picture = store.cel_bitmap;
    pivot_scaled_sprite(target, picture, x, y, picture->w / 2, picture->h / 2, itofix(cel_work.cel_place.x2),
                        itofix(1));
}

/// For each of `shown` places of a target the pixel of a line of `length` that a stretch to `size` from `start` on
/// brings there, counted from the other end if `backwards`; -1 where it brings none. Allegro's own stretch of the
/// numbers says so, whose roundings these are.
std::vector<int> stretched_places(int length, int start, int size, int shown, bool backwards)
{
    std::vector<int> places(static_cast<std::size_t>(shown), -1);
    const Bitmap numbers(length, 1);
    const Bitmap line(shown, 1, -1);
    if (!numbers || !line) return places;
    for (int i = 0; i < length; ++i)
        row(numbers, 0)[i] = backwards ? length - 1 - i : i;
    stretch_blit(numbers, line, 0, 0, length, 1, start, 0, size, 1);
    std::copy_n(row(line, 0), shown, places.begin());
    return places;
}

/// Draws the cel stretched to a box whose corner is at (x, y) of the target. A side whose corners run backwards turns
/// it over. Only what shows is looked at, however large the cel is.
void draw_stretched(BITMAP* target, int x, int y, const StretchBox& box)
{
    if (box.w < 1 || box.h < 1) return;
    const CelPlace& place = cel_work.cel_place;
    BITMAP* const picture = store.cel_bitmap;
    const std::vector<int> columns = stretched_places(picture->w, x, box.w, target->w, place.x2 < place.x);
    const std::vector<int> lines = stretched_places(picture->h, y, box.h, target->h, place.y2 < place.y);
    for (int ty = 0; ty < target->h; ++ty) {
        const int from_line = lines[ty];
        if (from_line < 0) continue;
        const int* const from = row(picture, from_line);
        int* const to = row(target, ty);
        for (int tx = 0; tx < target->w; ++tx) {
            const int column = columns[tx];
            if (column >= 0 && from[column] != mask_magenta) to[tx] = from[column];
        }
    }
}

// The previews of the modes. (x, y) is the cel's place in view coordinates.

void preview_plain(BITMAP* overlay, int x, int y)
{
    draw_sprite(overlay, store.cel_bitmap, x, y);
    if (cel_work.cel_place.show_outline != 1) return;
    DashPen(overlay).rectangle({x, y}, {x + store.cel_bitmap.width() - 1, y + store.cel_bitmap.height() - 1});
}

/// Notes the box of what the overlay shows; right is left of x when it shows nothing.
void note_turned_box(BITMAP* overlay)
{
    const int tolerance = std::max<int>(preferences.cel_tolerance, 1);
    CelPlace& place = cel_work.cel_place;
    place.box_x = overlay->w;
    place.box_y = overlay->h;
    place.box_w = place.box_h = -1;
    for (int y = 0; y < overlay->h; ++y) {
        for (int x = 0; x < overlay->w; ++x) {
            if (colors_close(row(overlay, y)[x], mask_magenta, tolerance)) continue;
            place.box_x = std::min(place.box_x, x);
            place.box_y = std::min(place.box_y, y);
            place.box_w = std::max(place.box_w, x);
            place.box_h = y;
        }
    }
}

void preview_turned(BITMAP* overlay, int x, int y)
{
    draw_turned(overlay, x, y);
    note_turned_box(overlay);
    const CelPlace& place = cel_work.cel_place;
    if (place.show_outline != 1 || place.box_w < place.box_x) return;
    DashPen(overlay).rectangle({place.box_x, place.box_y}, {place.box_w, place.box_h});
}

int percent(int part, int whole)
{
    return part == 0 ? 0 : static_cast<int>(static_cast<float>(part) / static_cast<float>(whole) * 100.0F);
}

void write_size(BITMAP* overlay, int x, int y, const StretchBox& box)
{
    std::array<char, 32> label{};
    std::snprintf(label.data(), label.size(), "%d%%, %d%%", percent(box.w, store.cel_bitmap.width()),
                  percent(box.h, store.cel_bitmap.height()));
    set_outlined_text(FONT_NARROW, SET_LIGHT_ALT);
    const FrameSnapshot& shot = frame_snapshot;
    const LabelPlace at = stretch_label_place(x, y, shot.frame_mouse_x - shot.pan_x, shot.frame_mouse_y - shot.pan_y,
                                              text_width(label.data()));
    draw_text(overlay, at.x, at.y, label.data());
}

void preview_stretched(BITMAP* overlay, int x, int y)
{
    CelPlace& place = cel_work.cel_place;
    const StretchBox box = stretch_box();
    place.box_x = box.x - place.x + x;
    place.box_y = box.y - place.y + y;
    place.box_w = box.w;
    place.box_h = box.h;
    draw_stretched(overlay, place.box_x, place.box_y, box);
    if (place.show_outline == 1)
        DashPen(overlay).rectangle({place.box_x - 1, place.box_y - 1}, {place.box_x + box.w, place.box_y + box.h});
    write_size(overlay, x, y, box);
}

// The commits of the modes, in frame pixels.

void commit_turned()
{
    BITMAP* frame = store.frame_bitmap;
    const Bitmap picture(frame->w, frame->h, mask_magenta);
    if (!picture) return;
    draw_turned(picture, cel_work.cel_place.x, cel_work.cel_place.y);
    ink_sprite(picture, 0, 0);
}

/// Stretches no more than the frame can take, however large the box is.
void commit_stretched()
{
    const StretchBox box = stretch_box();
    const int left = std::max(box.x, 0);
    const int top = std::max(box.y, 0);
    const Bitmap picture(std::min(box.x + box.w, store.frame_bitmap.width()) - left,
                         std::min(box.y + box.h, store.frame_bitmap.height()) - top, mask_magenta);
    if (!picture) return;
    draw_stretched(picture, box.x - left, box.y - top, box);
    ink_sprite(picture, left, top);
}

bool overlaps_view(int x, int y)
{
    const int level = frame_snapshot.zoom;
    return x + store.cel_bitmap.width() > 0 && y + store.cel_bitmap.height() > 0 &&
           static_cast<float>(x) < view.view_w[level] && static_cast<float>(y) < view.view_h[level];
}

} // namespace

void draw_cel_preview()
{
    BITMAP* const overlay = screen_state.tool_overlay;
    clear_to_color(overlay, mask_magenta);
    if (!store.cel_bitmap) return;
    const CelPlace& place = cel_work.cel_place;
    const int x = place.x - frame_snapshot.pan_x;
    const int y = place.y - frame_snapshot.pan_y;
    if (place.mode == CEL_PLAIN) preview_plain(overlay, x, y);
    if (place.mode == CEL_ROTATION) preview_turned(overlay, x, y);
    if (place.mode == CEL_STRETCH) preview_stretched(overlay, x, y);
    cel_work.cel_in_view = overlaps_view(x, y) ? 1 : 0;
}

void draw_grab_marker()
{
    BITMAP* const overlay = screen_state.tool_overlay;
    clear_to_color(overlay, mask_magenta);
    const FrameSnapshot& shot = frame_snapshot;
    const Point mouse{shot.frame_mouse_x, shot.frame_mouse_y};
    const DashPen pen(overlay);
    if (cel_work.grab_x == no_corner_yet) {
        const Point at{mouse.x - shot.pan_x, mouse.y - shot.pan_y};
        pen.line({at.x - logical_w, at.y}, {at.x + logical_w, at.y});
        pen.line({at.x, at.y - logical_h}, {at.x, at.y + logical_h});
        return;
    }
    pen.rectangle({cel_work.grab_x - shot.pan_x, cel_work.grab_y - shot.pan_y},
                  {snap_to_grid(mouse.x, mouse.y, 0) - shot.pan_x, snap_to_grid(mouse.x, mouse.y, 1) - shot.pan_y});
}

void commit_cel(int mode)
{
    clear_to_color(screen_state.tool_overlay, mask_magenta);
    const CelPlace& place = cel_work.cel_place;
    switch (mode) {
    case CEL_STRETCH:
        commit_stretched();
        break;
    case CEL_ROTATION:
        commit_turned();
        break;
    case CEL_BELOW:
        ink_below(store.cel_source_bitmap, place.x, place.y);
        break;
    default:
        ink_sprite(store.cel_bitmap, place.x, place.y);
        break;
    }
}

StretchBox stretch_box()
{
    const CelPlace& place = cel_work.cel_place;
    return {std::min(place.x, place.x2), std::min(place.y, place.y2), std::abs(place.x2 - place.x),
            std::abs(place.y2 - place.y)};
}

LabelPlace stretch_label_place(int x, int y, int mouse_x, int mouse_y, int w)
{
    constexpr int gap = 7;     // beside the pointer
    constexpr int height = 12; // from the pointer to the far side of a label above or below it
    const bool to_left = mouse_x > x ? mouse_x + gap + w >= logical_w : mouse_x - gap > w;
    const bool above = mouse_y > y ? mouse_y + height >= logical_h : mouse_y > height;
    return {to_left ? mouse_x - gap - w : mouse_x + gap, above ? mouse_y - height : mouse_y + gap};
}

} // namespace kelu
