// SPDX-License-Identifier: MIT
// The cel as a picture.
#include "draw/cel.h"

#include "base/log.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include <algorithm>
#include <utility>

namespace kelu {
namespace {

/// Calls `change(pixel)` for every pixel of a bitmap.
template <class Change>
void for_each_pixel(BITMAP* bitmap, Change change)
{
    for (int y = 0; y < bitmap->h; ++y) {
        int* pixels = row(bitmap, y);
        std::for_each(pixels, pixels + bitmap->w, change);
    }
}

void copy_picture(BITMAP* from, BITMAP* to) { blit(from, to, 0, 0, 0, 0, from->w, from->h); }

} // namespace

void apply_cel_mask(BITMAP* bitmap, int color)
{
    if (preferences.cel_masking == 0) return;
    const int tolerance = preferences.cel_tolerance;
    for_each_pixel(bitmap, [=](int& pixel) {
        if (colors_close(pixel, color, tolerance)) pixel = mask_magenta;
    });
}

bool take_cel(const CelRect& rect)
{
    Bitmap picture(rect.width(), rect.height(), mask_magenta);
    if (picture) blit(store.frame_bitmap, picture, rect.left, rect.top, 0, 0, rect.width(), rect.height());
    Bitmap copy = picture.copy();
    if (!copy) {
        log_line("[ ERROR ] : A cel of %d x %d pixels is too large.", rect.width(), rect.height());
        return false;
    }
    store.cel_source_bitmap = std::move(picture);
    note_new_cel();
    store.cel_bitmap = std::move(copy);
    return true;
}

CelRect find_picture(int color)
{
    const int tolerance = preferences.cel_tolerance;
    BITMAP* frame = store.frame_bitmap;
    CelRect box{frame->w, frame->h, -1, -1};
    const auto in_picture = [=](int pixel) { return !colors_close(pixel, color, tolerance); };
    for (int y = 0; y < frame->h; ++y) {
        const int* pixels = row(frame, y);
        const int* end = pixels + frame->w;
        const int* first = std::find_if(pixels, end, in_picture);
        if (first == end) continue;
        int last = frame->w - 1;
        while (last > box.right && !in_picture(pixels[last]))
            --last;
        box.left = std::min(box.left, static_cast<int>(first - pixels));
        box.right = std::max(box.right, last);
        box.top = std::min(box.top, y);
        box.bottom = y;
    }
    return box;
}

void restore_cel_copy() { copy_picture(store.cel_source_bitmap, store.cel_bitmap); }

void cel_one_color(BITMAP* bitmap, int color)
{
    const int tolerance = preferences.cel_tolerance + 1; // differences up to the tolerance itself stay
    const int brush_color = toolbox.brush_color;
    for_each_pixel(bitmap, [=](int& pixel) {
        if (!colors_close(pixel, color, tolerance)) pixel = brush_color;
    });
}

void flip_cel(BITMAP* shown, BITMAP* scratch)
{
    draw_sprite_v_flip(shown, scratch, 0, 0);
    copy_picture(shown, scratch);
}

void mirror_cel(BITMAP* shown, BITMAP* scratch)
{
    draw_sprite_h_flip(shown, scratch, 0, 0);
    copy_picture(shown, scratch);
}

void turn_cel(BITMAP* shown, BITMAP* scratch)
{
    constexpr int quarter = 64; // of 256 to the circle
    draw_sprite_h_flip(shown, scratch, 0, 0);
    const int cx = scratch->w / 2;
    const int cy = scratch->h / 2;
    pivot_scaled_sprite(shown, scratch, cx, cy, cx, cy, itofix(quarter), itofix(1));
    copy_picture(shown, scratch);
}

KeptCel::KeptCel()
    : source_(std::move(store.cel_source_bitmap)), copy_(std::move(store.cel_bitmap)), cel_(cel),
      place_(cel_work.cel_place)
{
    ++cel_work.borrowed;
}

KeptCel::~KeptCel()
{
    store.cel_source_bitmap = std::move(source_);
    store.cel_bitmap = std::move(copy_);
    cel = cel_;
    cel_work.cel_place = place_;
    --cel_work.borrowed;
}

} // namespace kelu
