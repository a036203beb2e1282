// SPDX-License-Identifier: MIT
// Frame and alpha picture to one picture and back.
#include "workspace/merged.h"

#include "base/log.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "workspace/running_work.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr int color_bits = 0xffffff;

constexpr int top_byte(int pixel) { return static_cast<int>(static_cast<unsigned>(pixel) >> 24); }

/// The grey that a pixel of the alpha picture turns to when it is kept.
constexpr int grey_level(int pixel) { return (red_of(pixel) + green_of(pixel) + blue_of(pixel)) / 3; }

void merge_row(int y, int* to, int w) { merge_pixels(row(color_picture(), y), row(alpha_picture(), y), to, w); }

bool same_row(int y, const int* restored, int w)
{
    const int* color = row(color_picture(), y);
    const int* alpha = row(alpha_picture(), y);
    int difference = 0; // of all pixels: a way out for each would keep them from going side by side
    for (int x = 0; x < w; ++x)
        difference |= ((color[x] ^ restored[x]) & color_bits) | (grey_level(alpha[x]) ^ top_byte(restored[x]));
    return difference == 0;
}

/// What the tools have drawn on the alpha picture turns to the grey that is kept.
void turn_edited_alpha_grey()
{
    if (!store.alpha_edit_mode) return;
    gray_normalize(store.frame_bitmap);
    touch_frame();
}

bool same_size(const Bitmap& a, const Bitmap& b) { return a.width() == b.width() && a.height() == b.height(); }

} // namespace

Bitmap& color_picture() { return store.alpha_edit_mode ? store.alpha_bitmap : store.frame_bitmap; }
Bitmap& alpha_picture() { return store.alpha_edit_mode ? store.frame_bitmap : store.alpha_bitmap; }

void merge_pixels(const int* color, const int* alpha, int* to, int count)
{
    for (int x = 0; x < count; ++x) {
        const auto level = static_cast<unsigned>(grey_level(alpha[x]));
        to[x] = static_cast<int>(static_cast<unsigned>(color[x] & color_bits) | level << 24);
    }
}

Bitmap merged_picture(const Bitmap& color, const Bitmap& alpha)
{
    Bitmap merged = Bitmap::unfilled(color.width(), color.height());
    for (int y = 0; y < merged.height(); ++y)
        merge_pixels(row(color, y), row(alpha, y), row(merged, y), merged.width());
    return merged;
}

void alpha_merge(BITMAP* dest)
{
    if (!dest || !store.frame_bitmap || !store.alpha_bitmap) {
        log_line("[ ERROR ] : Whoops. Dest, frame, or swap bitmap is missing in alpha merge. Baborting.");
        return;
    }
    turn_edited_alpha_grey();
    const int w = std::min({dest->w, store.frame_bitmap.width(), store.alpha_bitmap.width()});
    const int h = std::min({dest->h, store.frame_bitmap.height(), store.alpha_bitmap.height()});
    for (int y = 0; y < h; ++y)
        merge_row(y, row(dest, y), w);
}

RowSource merged_rows()
{
    turn_edited_alpha_grey();
    return [](int y, int* pixels) { merge_row(y, pixels, store.frame_bitmap.width()); };
}

void alpha_strip(BITMAP* src, BITMAP* first, BITMAP* second)
{
    if (!src || !first || !second) {
        log_line("[ ERROR ] : Whoops. Source, frame, or swap bitmap is missing in alpha strip. Baborting.");
        return;
    }
    const int w = std::min({src->w, first->w, second->w});
    const int h = std::min({src->h, first->h, second->h});
    for (int y = 0; y < h; ++y)
        strip_row(row(src, y), row(first, y), row(second, y), w);
}

void strip_row(const int* from, int* first, int* second, int w)
{
    int* const color = store.alpha_edit_mode ? second : first;
    int* const alpha = store.alpha_edit_mode ? first : second;
    for (int x = 0; x < w; ++x) {
        const int pixel = from[x]; // read before it is written: one of the two may be the source
        const int level = top_byte(pixel);
        color[x] = pixel & color_bits;
        alpha[x] = pack_rgb(level, level, level);
    }
}

void gray_normalize(BITMAP* bitmap)
{
    for (int y = 0; y < bitmap->h; ++y) {
        int* line = row(bitmap, y);
        for (int x = 0; x < bitmap->w; ++x) {
            const int level = grey_level(line[x]);
            line[x] = pack_rgb(level, level, level);
        }
    }
}

void toggle_alpha_edit()
{
    if (!store.frame_bitmap || !same_size(store.frame_bitmap, store.alpha_bitmap)) return;
    settle_frame();
    exchange_journal_plane();
    for (int y = 0; y < store.frame_bitmap.height(); ++y) {
        int* frame = row(store.frame_bitmap, y);
        std::swap_ranges(frame, frame + store.frame_bitmap.width(), row(store.alpha_bitmap, y));
    }
    if (store.alpha_edit_mode) gray_normalize(store.alpha_bitmap);
    store.alpha_edit_mode = !store.alpha_edit_mode;
    touch_frame();
    settle_exchanged_frame();
}

bool frame_changed()
{
    if (!same_size(store.frame_bitmap, store.restoration_bitmap)) return true;
    for (int y = 0; y < store.frame_bitmap.height(); ++y)
        if (!same_row(y, row(store.restoration_bitmap, y), store.frame_bitmap.width())) return true;
    return false;
}

} // namespace kelu
