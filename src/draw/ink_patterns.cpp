// SPDX-License-Identifier: MIT
// Inks that paint with the cel as a repeating texture, anchored to the frame: TILE and SCRAPE.
#include "draw/ink_loops.h"

#include "runtime/cel.h"
#include "runtime/store.h"

namespace kelu {
namespace {

constexpr int mask_tolerance = 2; ///< TILE leaves out what is as near to the mask colour as this

/// What is left of a distance after whole repeats of `size`, 0 to size - 1 on both sides of the origin.
int repeated(int distance, int size)
{
    const int rest = distance % size;
    return rest < 0 ? rest + size : rest;
}

/// The cel as it was grabbed, repeated evenly in all directions from its origin.
class CelPattern {
public:
    CelPattern() : picture_(store.cel_source_bitmap)
    {
        if (empty()) return;
        first_x_ = repeated(cel.cel_origin_x, picture_->w);
        first_y_ = repeated(cel.cel_origin_y, picture_->h);
    }
    bool empty() const { return picture_ == nullptr; }
    int at(int x, int y) const
    {
        return row(picture_, repeated(y - first_y_, picture_->h))[repeated(x - first_x_, picture_->w)];
    }

private:
    BITMAP* picture_;
    int first_x_ = 0, first_y_ = 0; ///< the repeat of the origin nearest to the frame's corner
};

} // namespace

/// The cel's colour; near the mask colour the frame stays. At full strength it knows no coverage, as OPAQUE.
struct Tile {
    explicit Tile(const Canvas&) : mask_color(toolbox.mask_color) {}
    void apply(const Dab& dab) const
    {
        if (dab.tip_value >= tip_no_ink || pattern.empty()) return;
        const int color = pattern.at(dab.x, dab.y);
        if (colors_close(mask_color, color, mask_tolerance)) return;
        if (dab.tip_value == 0) {
            *dab.frame = color;
        } else if (claim(dab, fixed_weight(dab.tip_value))) {
            lay_on(*dab.frame, color, fixed_weight(dab.tip_value));
        }
    }

private:
    CelPattern pattern;
    int mask_color;
};

/// GLASS in the cel's colours.
struct Scrape {
    explicit Scrape(const Canvas&) : s(ink_strength(INK_SCRAPE)) {}
    void apply(const Dab& dab) const
    {
        if (!pattern.empty()) blend_over_source(dab, s, pattern.at(dab.x, dab.y));
    }

private:
    CelPattern pattern;
    int s;
};

template struct InkLoops<Tile>;
template struct InkLoops<Scrape>;

} // namespace kelu
