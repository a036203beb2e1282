// SPDX-License-Identifier: MIT
// Indices by Allegro's colour table, and palettes in the form of files.
#include "imagefile/indexed.h"

#include "runtime/pixels.h"
#include <memory>

namespace kelu {
namespace {

/// Squared distance of two colours of 6-bit channels, weighted as Allegro weighs its colour table.
int distance(const RGB& color, int r, int g, int b)
{
    const auto part = [](int weight, int difference) { return weight * difference * weight * difference; };
    return part(30, color.r - r) + part(59, color.g - g) + part(11, color.b - b);
}

/// Allegro keeps index 0 for the mask colour and never puts it into a colour table. Here it is a colour like the
/// others, often the commonest one of the picture, so it takes the cells to which it is strictly nearer.
void admit_first_entry(RGB_MAP& table, const RGB* palette)
{
    for (int r = 0; r < 32; ++r) {
        for (int g = 0; g < 32; ++g) {
            for (int b = 0; b < 32; ++b) {
                // The middle of the cell, as the table itself counts: 5 bits spread over 6.
                const int r6 = r << 1 | r >> 4;
                const int g6 = g << 1 | g >> 4;
                const int b6 = b << 1 | b >> 4;
                unsigned char& index = table.data[r][g][b];
                if (distance(palette[0], r6, g6, b6) < distance(palette[index], r6, g6, b6)) index = 0;
            }
        }
    }
}

} // namespace

Bytes index_pixels(BITMAP* bitmap, const RGB* palette)
{
    const auto w = static_cast<std::size_t>(bitmap->w);
    Bytes indices(w * bitmap->h);
    uint8_t* out = indices.data();
    if (bitmap_color_depth(bitmap) == 8) {
        for (int y = 0; y < bitmap->h; ++y, out += w)
            std::copy_n(bitmap->line[y], w, out);
        return indices;
    }
    if (!palette) palette = default_palette;
    const auto table = std::make_unique<RGB_MAP>();
    create_rgb_table(table.get(), palette, nullptr);
    admit_first_entry(*table, palette);
    for (int y = 0; y < bitmap->h; ++y) {
        const int* pixels = row(bitmap, y);
        for (int x = 0; x < bitmap->w; ++x)
            *out++ = table->data[red_of(pixels[x]) >> 3][green_of(pixels[x]) >> 3][blue_of(pixels[x]) >> 3];
    }
    return indices;
}

void put_palette(ByteWriter& out, const RGB* palette)
{
    if (!palette) palette = default_palette;
    for (int i = 0; i < PAL_SIZE; ++i) {
        for (const int level : {palette[i].r, palette[i].g, palette[i].b})
            out.byte(level << 2);
    }
}

std::array<int, PAL_SIZE> palette_colors(const RGB* palette)
{
    std::array<int, PAL_SIZE> colors{};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const RGB& entry = palette[i];
        colors[i] = pack_rgb(_rgb_scale_6[entry.r & 63], _rgb_scale_6[entry.g & 63], _rgb_scale_6[entry.b & 63]);
    }
    return colors;
}

} // namespace kelu
