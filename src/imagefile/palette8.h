// SPDX-License-Identifier: MIT
// Palettes of up to 256 colours with all 8 bits of a channel, and the way from colours to their indices: what the
// pictures of an animated GIF need.
#pragma once

#include "base/reader.h"
#include <array>
#include <vector>

namespace kelu {

/// Colours by index, as 0x00RRGGBB.
using Palette8 = std::vector<int>;

/// Up to `most` different colours, found by hash.
class ColorSet {
public:
    static constexpr int most_colors = 256;

    /// Takes a colour in; false when it would be one too many.
    bool add(int rgb);
    /// The index of a colour, in order of coming; -1: it isn't in the set.
    int find(int rgb) const;
    const Palette8& colors() const { return colors_; }

private:
    std::size_t cell_of(int rgb) const;

    std::array<int16_t, 1024> cells_ = [] { ///< by hash: index of a colour, -1 for none
        std::array<int16_t, 1024> none{};
        none.fill(-1);
        return none;
    }();
    Palette8 colors_;
};

/// The index of the nearest colour of a palette; it remembers what it has been asked.
class NearestColor {
public:
    /// The palette has 1 to 256 colours and must exist as long as this is in use.
    explicit NearestColor(const Palette8& palette);
    int operator()(int rgb);

private:
    struct Known {
        int rgb = -1, index = 0;
    };
    const Palette8& palette_;
    std::vector<Known> known_;
};

/// A palette of at most `most` colours for the pixels (0x00RRGGBB, at least one): their own colours when these are few
/// enough, else by a value of ColorReduction, the entries then moved to the means of the pixels nearest to them.
Palette8 reduce_to_palette(std::span<const int> pixels, int reduction, int most);

} // namespace kelu
