// SPDX-License-Identifier: MIT
// The three ways to a palette.
#include "imagefile/reduce.h"
#include "base/sizes.h"

#include "imagefile/neural.h"
#include "runtime/pixels.h"
#include <algorithm>
#include <vector>

namespace kelu {
namespace {

constexpr int good_sample_factor = 10;
constexpr int best_sample_factor = 1;

/// Blue, green, red of each pixel.
std::vector<uint8_t> pixel_bytes(BITMAP* frame)
{
    std::vector<uint8_t> bytes(product(frame->w, frame->h) * 3);
    uint8_t* out = bytes.data();
    for (int y = 0; y < frame->h; ++y) {
        for (int x = 0; x < frame->w; ++x, out += 3) {
            const int pixel = row(frame, y)[x];
            out[0] = static_cast<uint8_t>(blue_of(pixel));
            out[1] = static_cast<uint8_t>(green_of(pixel));
            out[2] = static_cast<uint8_t>(red_of(pixel));
        }
    }
    return bytes;
}

void quantize_fast(BITMAP* frame, RGB* palette)
{
    const signed char reserved[PAL_SIZE] = {};
    std::fill_n(palette, PAL_SIZE, RGB{});
    generate_optimized_palette(frame, palette, reserved);
}

} // namespace

int quantize_exact(BITMAP* frame, RGB* palette)
{
    std::vector<int> colors;
    int last = -1; // no colour
    for (int y = 0; y < frame->h; ++y) {
        for (int x = 0; x < frame->w; ++x) {
            const int color = row(frame, y)[x] & 0xffffff;
            if (color == last) continue;
            last = color;
            // Neighbours in the picture are neighbours in the list: it is searched from its end.
            if (std::find(colors.rbegin(), colors.rend(), color) != colors.rend()) continue;
            if (colors.size() == PAL_SIZE) return -1;
            colors.push_back(color);
        }
    }
    std::fill_n(palette, PAL_SIZE, RGB{});
    const auto level = [](int channel) { return static_cast<unsigned char>(channel >> 2); };
    for (std::size_t i = 0; i < colors.size(); ++i)
        palette[i] = {level(red_of(colors[i])), level(green_of(colors[i])), level(blue_of(colors[i])), 0};
    return static_cast<int>(colors.size());
}

void quantize_neural(BITMAP* frame, int sample_factor, RGB* palette)
{
    const std::vector<uint8_t> pixels = pixel_bytes(frame);
    init_network(pixels, sample_factor);
    learn();
    unbias_network();
    write_palette(palette);
}

void reduce_colors(BITMAP* frame, int reduction, RGB* palette)
{
    if (reduction == REDUCE_FAST)
        quantize_fast(frame, palette);
    else if (reduction == REDUCE_GOOD)
        quantize_neural(frame, good_sample_factor, palette);
    else if (quantize_exact(frame, palette) < 0)
        quantize_neural(frame, best_sample_factor, palette);
}

} // namespace kelu
