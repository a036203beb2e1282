// SPDX-License-Identifier: MIT
// What an ink sees: the bitmaps of the present operation, and one pixel of it under the brush.
//
// An ink is a class with a constructor that takes the Canvas and gathers the ink's options, and one function
// `apply(const Dab&) const` that changes a pixel. It knows no tool and no tip. The loops over a stamp, a span and a
// sprite are written once (ink_loops.h) and made once an ink, so that the work of `apply` is inlined into them.
#pragma once

#include "base/bitmap.h"
#include "draw/ink_rows.h"
#include "draw/tips.h"
#include "runtime/pixels.h"
#include "runtime/toolbox.h"
#include <algorithm>

namespace kelu {

/// Cell of an ink's options, brought into low to high: the tables come from files.
inline int ink_option(InkId ink, int column, int low, int high)
{
    return std::clamp<int>(toolbox.ink_table[ink][column], low, high);
}
/// Value of an option of an ink, clamped to the option's range.
inline int ink_option(InkId ink, const DrawOption& option)
{
    return ink_option(ink, option.column, option.lowest, option.highest());
}
/// Strength of an ink, 0 to 255; a tolerance for CLOSE, HOLLOW and SWEEP.
inline int ink_strength(InkId ink) { return ink_option(ink, options::strength); }

/// The bitmaps of the present operation. Frame and coverage are of one size. The stroke source normally is too; where
/// an older copy of another size has no pixel, the frame itself is the source.
struct Canvas {
    BITMAP* frame;
    BITMAP* coverage;
    BITMAP* source;

    /// The canvas of the present operation: the live bitmaps and the newest undo slot.
    static Canvas present();

    bool has(int x, int y) const { return in_bitmap(frame, x, y); }
    const int* source_at(int x, int y) const { return row(in_bitmap(source, x, y) ? source : frame, y) + x; }
};

/// One pixel of an operation. Always inside the frame.
struct Dab {
    int x, y;          ///< frame pixels
    int color;         ///< the ink's colour: the brush colour, or the pixel of a cel
    int tip_value;     ///< 0 full strength, 1 to 199 partial, 200 and more no mark
    int* frame;        ///< the pixel that is written
    int* coverage;     ///< weight of the strongest stamp of the operation on this pixel
    const int* source; ///< the pixel as it was before the operation
};

/// True when no stamp of this operation was as strong on this pixel; the weight is then on record.
inline bool claim(const Dab& dab, int weight)
{
    if (*dab.coverage >= weight) return false;
    *dab.coverage = weight;
    return true;
}

/// Weight of a stamp on the fixed scale.
constexpr int fixed_weight(int tip_value) { return tip_no_ink - tip_value; }

/// Weight of a stamp on the strength scale: the strength s, thinned by a partial tip value.
constexpr int strength_weight(int s, int tip_value)
{
    if (tip_value == 0) return s;
    return static_cast<int>(static_cast<float>(s) / 255.0F * static_cast<float>(fixed_weight(tip_value)));
}

/// One pixel of `blend_rect`: nothing at alpha 0 or less, `color` at 255, between them the blend.
inline void lay_on(int& pixel, int color, int alpha)
{
    if (alpha <= 0) return;
    pixel = alpha == 255 ? color : blend_pixel(pixel, color, alpha);
}

/// The strength scale: the stroke source with one colour laid on at the weight of s and the tip.
inline void blend_over_source(const Dab& dab, int s, int effect)
{
    if (dab.tip_value >= tip_no_ink) return;
    const int weight = strength_weight(s, dab.tip_value);
    if (!claim(dab, weight)) return;
    *dab.frame = *dab.source;
    lay_on(*dab.frame, effect, weight);
}

} // namespace kelu
