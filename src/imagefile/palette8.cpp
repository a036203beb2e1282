// SPDX-License-Identifier: MIT
// Exact palettes, and reduced ones.
#include "imagefile/palette8.h"

#include "base/bitmap.h"
#include "imagefile/neural.h"
#include "imagefile/reduce.h"
#include "runtime/pixels.h"
#include <limits>

namespace kelu {
namespace {

constexpr uint32_t hash_factor = 2654435769u;
constexpr int known_bits = 14;
constexpr int rounds = 3; // of moving to the means; more gain little

/// The pixels as a picture, the last one repeated to fill it.
Bitmap as_picture(std::span<const int> pixels)
{
    constexpr std::size_t side = 1024;
    const std::size_t w = std::min(side, pixels.size());
    const std::size_t h = (pixels.size() + w - 1) / w;
    Bitmap picture(static_cast<int>(w), static_cast<int>(h), pixels.back());
    if (!picture) throw std::bad_alloc();
    for (std::size_t y = 0; y < h; ++y) {
        const auto run = pixels.subspan(y * w, std::min(w, pixels.size() - y * w));
        std::copy(run.begin(), run.end(), row(picture, static_cast<int>(y)));
    }
    return picture;
}

Palette8 learnt_palette(BITMAP* picture, int reduction)
{
    PALETTE coarse;
    reduce_colors(picture, reduction, coarse);
    Palette8 colors;
    for (const RGB& entry : coarse)
        colors.push_back(pack_rgb(_rgb_scale_6[entry.r & 63], _rgb_scale_6[entry.g & 63], _rgb_scale_6[entry.b & 63]));
    return colors;
}

/// The sum of the pixels that an entry stands for.
struct Share {
    long r = 0, g = 0, b = 0, pixels = 0;
};

std::vector<Share> shares_of(const Palette8& palette, std::span<const int> pixels)
{
    std::vector<Share> shares(palette.size());
    NearestColor nearest(palette);
    for (const int pixel : pixels) {
        Share& share = shares[static_cast<std::size_t>(nearest(pixel))];
        share.r += red_of(pixel);
        share.g += green_of(pixel);
        share.b += blue_of(pixel);
        ++share.pixels;
    }
    return shares;
}

/// Moves each entry to the mean of its pixels. Entries without any go, and of too many those with the fewest.
Palette8 means(std::vector<Share> shares, int most)
{
    std::ranges::stable_sort(shares, std::greater(), &Share::pixels);
    Palette8 palette;
    for (const Share& share : shares) {
        if (share.pixels == 0 || static_cast<int>(palette.size()) == most) break;
        const auto mean = [&share](long sum) { return static_cast<int>((sum + share.pixels / 2) / share.pixels); };
        palette.push_back(pack_rgb(mean(share.r), mean(share.g), mean(share.b)));
    }
    return palette;
}

} // namespace

std::size_t ColorSet::cell_of(int rgb) const
{
    std::size_t cell = static_cast<uint32_t>(rgb) * hash_factor >> 22;
    while (cells_[cell] >= 0 && colors_[static_cast<std::size_t>(cells_[cell])] != rgb)
        cell = (cell + 1) % cells_.size();
    return cell;
}

bool ColorSet::add(int rgb)
{
    const std::size_t cell = cell_of(rgb);
    if (cells_[cell] >= 0) return true;
    if (colors_.size() == most_colors) return false;
    cells_[cell] = static_cast<int16_t>(colors_.size());
    colors_.push_back(rgb);
    return true;
}

int ColorSet::find(int rgb) const { return cells_[cell_of(rgb)]; }

NearestColor::NearestColor(const Palette8& palette) : palette_(palette), known_(std::size_t{1} << known_bits) {}

int NearestColor::operator()(int rgb)
{
    Known& known = known_[static_cast<uint32_t>(rgb) * hash_factor >> (32 - known_bits)];
    if (known.rgb == rgb) return known.index;
    int best = 0, best_distance = std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < palette_.size(); ++i) {
        const int r = red_of(palette_[i]) - red_of(rgb);
        const int g = green_of(palette_[i]) - green_of(rgb);
        const int b = blue_of(palette_[i]) - blue_of(rgb);
        const int distance = r * r + g * g + b * b;
        if (distance >= best_distance) continue;
        best_distance = distance;
        best = static_cast<int>(i);
    }
    known = {rgb, best};
    return best;
}

Palette8 reduce_to_palette(std::span<const int> pixels, int reduction, int most)
{
    ColorSet own;
    const bool few = std::ranges::all_of(pixels, [&own](int pixel) { return own.add(pixel); });
    if (few && static_cast<int>(own.colors().size()) <= most) return own.colors();
    const Bitmap picture = as_picture(pixels);
    Palette8 palette = learnt_palette(picture, reduction);
    for (int round = 0; round < rounds; ++round)
        palette = means(shares_of(palette, pixels), most);
    return palette;
}

} // namespace kelu
