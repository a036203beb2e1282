// SPDX-License-Identifier: MIT
// Owner of an Allegro bitmap, and direct access to its lines.
//
// All bitmaps of the program are 32 bits deep. A pixel is an int: 0x00RRGGBB, or with an alpha value in the top byte
// in the merged form of a frame. Hot loops read and write lines; nothing here clips.
#pragma once

#include <allegro.h>
#include <utility>

namespace kelu {

/// Longest side of any bitmap, in pixels.
constexpr int max_bitmap_side = 32767;
/// Most pixels of any bitmap: a frame of 11585 x 11585, half a gigabyte. A fuzzer's pictures are small, so that it
/// spends its time on the readers and not on the clearing of memory.
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
constexpr long max_bitmap_pixels = 1L << 18;
#else
constexpr long max_bitmap_pixels = 1L << 27;
#endif
/// The transparent colour of every sprite and overlay.
constexpr int mask_magenta = 0xff00ff;

/// True when a bitmap of w x h pixels can be asked for: both sides 1 to `max_bitmap_side`, and no more than
/// `max_bitmap_pixels` in all.
constexpr bool bitmap_size_valid(long w, long h)
{
    return w >= 1 && h >= 1 && w <= max_bitmap_side && h <= max_bitmap_side && w * h <= max_bitmap_pixels;
}

/// Move-only owner of a BITMAP. Assigning destroys the old one, std::swap exchanges two, a local is a temporary.
class Bitmap {
public:
    constexpr Bitmap() = default;
    /// A new bitmap of w x h pixels, cleared to `color`; empty when the size is not valid or memory is short.
    Bitmap(int w, int h, int color = 0);
    /// A new bitmap whose pixels may be anything, for who writes them all at once; empty as above.
    static Bitmap unfilled(int w, int h);
    /// Takes over a bitmap that Allegro made; null makes an empty owner.
    explicit Bitmap(BITMAP* made) : bitmap_(made) {}
    Bitmap(Bitmap&& other) noexcept : bitmap_(std::exchange(other.bitmap_, nullptr)) {}
    Bitmap& operator=(Bitmap&& other) noexcept
    {
        std::swap(bitmap_, other.bitmap_);
        other.reset();
        return *this;
    }
    Bitmap(const Bitmap&) = delete;
    Bitmap& operator=(const Bitmap&) = delete;
    ~Bitmap() { reset(); }

    /// Destroys the bitmap, if there is one.
    void reset();
    /// Gives the bitmap up to the caller, who destroys it.
    BITMAP* release() { return std::exchange(bitmap_, nullptr); }
    /// A new bitmap with the same pixels, or an empty owner.
    Bitmap copy() const;

    BITMAP* get() const { return bitmap_; }
    operator BITMAP*() const { return bitmap_; }
    BITMAP* operator->() const { return bitmap_; }
    explicit operator bool() const { return bitmap_ != nullptr; }
    int width() const { return bitmap_ ? bitmap_->w : 0; }
    int height() const { return bitmap_ ? bitmap_->h : 0; }

private:
    BITMAP* bitmap_ = nullptr;
};

/// The pixels of row y of a 32-bit bitmap, 0 to its height - 1.
inline int* row(BITMAP* bitmap, int y) { return reinterpret_cast<int*>(bitmap->line[y]); }

/// True when (x, y) is a pixel of the bitmap.
inline bool in_bitmap(const BITMAP* bitmap, int x, int y)
{
    return static_cast<unsigned>(x) < static_cast<unsigned>(bitmap->w) &&
           static_cast<unsigned>(y) < static_cast<unsigned>(bitmap->h);
}

} // namespace kelu
