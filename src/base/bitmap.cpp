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
    BITMAP* bitmap = create_bitmap_ex(32, w, h);
    const std::size_t pixels = product(w, h);
    if (bitmap) platform::prefer_large_pages(bitmap->dat, pixels * sizeof(int));
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
