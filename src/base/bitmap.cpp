// SPDX-License-Identifier: MIT
// Making, copying and destroying bitmaps.
#include "base/bitmap.h"

#include "base/memory.h"
#include "base/sizes.h"

namespace kelu {
namespace {

/// Pixels of any value, in one block as Allegro makes it; null when memory is short.
BITMAP* allocate(int w, int h)
{
    // Pixels below each other come one cache line further on. At the distances of wide canvases, 1024 pixels or 4096,
    // they would all fall to the same few places of the processor's caches.
    constexpr int crowded = 512, room = 16;
    const int row_pixels = w % crowded == 0 ? w + room : w;
    BITMAP* bitmap = create_bitmap_ex(32, row_pixels, h);
    if (!bitmap) return nullptr;
    bitmap->w = bitmap->cr = w;
    platform::prefer_large_pages(bitmap->dat, product(row_pixels, h) * sizeof(int));
    return bitmap;
}

} // namespace

Bitmap::Bitmap(int w, int h, int color)
{
    if (!bitmap_size_valid(w, h)) return;
    bitmap_ = allocate(w, h);
    if (bitmap_) clear_to_color(bitmap_, color);
}

Bitmap Bitmap::unfilled(int w, int h) { return bitmap_size_valid(w, h) ? Bitmap(allocate(w, h)) : Bitmap(); }

void Bitmap::reset()
{
    // A global owner outlives Allegro, which can then no longer destroy: the process's end takes the memory back.
    if (!system_driver) return;
    if (bitmap_) destroy_bitmap(bitmap_);
    bitmap_ = nullptr;
}

Bitmap Bitmap::copy() const
{
    if (!bitmap_) return {};
    Bitmap twin = unfilled(bitmap_->w, bitmap_->h);
    if (twin) blit(bitmap_, twin, 0, 0, 0, 0, bitmap_->w, bitmap_->h);
    return twin;
}

} // namespace kelu
