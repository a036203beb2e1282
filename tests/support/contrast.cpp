// SPDX-License-Identifier: MIT
// Which pixels belong to texts is found by composing the frame once more with other colours in all sets of the text
// engine; what stands around such a pixel most often is its ground.
#include "support/contrast.h"

#include "base/bitmap.h"
#include "base/run_state.h"
#include "gui/text_colours.h"
#include "loop/frame.h"
#include "runtime/pixels.h"
#include <algorithm>
#include <cmath>
#include <vector>

namespace kelu::test {
namespace {

constexpr int rgb_mask = 0xffffff;
constexpr int lowest_bits = 0x010101;

double luminance(int colour)
{
    const auto linear = [](int channel) {
        const double level = channel / 255.0;
        return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(red_of(colour)) + 0.7152 * linear(green_of(colour)) + 0.0722 * linear(blue_of(colour));
}

Bitmap composed()
{
    compose_frame(false);
    return screen_state.back_buffer.copy();
}

Bitmap composed_in_other_colours()
{
    const auto kept = text_colours;
    for (ColourSet& set : text_colours)
        for (int& colour : set)
            if (colour != marker_stays) colour ^= lowest_bits;
    Bitmap picture = composed();
    text_colours = kept;
    return picture;
}

/// Place of a pixel in a list of all, line by line.
std::size_t place_of(BITMAP* picture, int x, int y)
{
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(picture->w) + static_cast<std::size_t>(x);
}

/// The colour that stands around a pixel most often, of those that belong to no text; -1 none.
int ground_of(BITMAP* picture, const std::vector<bool>& is_text, int x, int y)
{
    std::map<int, int> around;
    for (int v = y - 1; v <= y + 1; ++v) {
        for (int u = x - 1; u <= x + 1; ++u) {
            const bool counts = in_bitmap(picture, u, v) && !is_text[place_of(picture, u, v)];
            if (counts) ++around[row(picture, v)[u] & rgb_mask];
        }
    }
    const auto most = std::ranges::max_element(around, {}, [](const auto& entry) { return entry.second; });
    return most == around.end() ? -1 : most->first;
}

} // namespace

double contrast(const TextPair& pair)
{
    const auto [dark, light] = std::minmax({luminance(pair.text), luminance(pair.ground)});
    return (light + 0.05) / (dark + 0.05);
}

std::map<TextPair, int> text_pairs()
{
    const Bitmap picture = composed(), other = composed_in_other_colours(), again = composed();
    std::vector<bool> is_text(place_of(picture, 0, picture.height()));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool flickers = row(picture, y)[x] != row(again, y)[x];
            is_text[place_of(picture, x, y)] = !flickers && row(picture, y)[x] != row(other, y)[x];
        }
    }
    std::map<TextPair, int> pairs;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (!is_text[place_of(picture, x, y)]) continue;
            const int ground = ground_of(picture, is_text, x, y);
            if (ground >= 0) ++pairs[{row(picture, y)[x] & rgb_mask, ground}];
        }
    }
    return pairs;
}

} // namespace kelu::test
