// Making, copying and destroying bitmaps.
#include "runtime/bitmap.h"

namespace kelu {

Bitmap::Bitmap(int w, int h, int color)
{
    if (!bitmap_size_valid(w, h)) return;
    bitmap_ = create_bitmap_ex(32, w, h);
    if (bitmap_) clear_to_color(bitmap_, color);
}

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
    Bitmap twin(create_bitmap_ex(32, bitmap_->w, bitmap_->h));
    if (twin) blit(bitmap_, twin, 0, 0, 0, 0, bitmap_->w, bitmap_->h);
    return twin;
}

} // namespace kelu
