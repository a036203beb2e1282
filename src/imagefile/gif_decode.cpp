// SPDX-License-Identifier: MIT
// The GIF reader: blocks up to the first image, its data, its pixels.
#include "imagefile/gif.h"

#include "base/log.h"
#include "base/sizes.h"
#include "imagefile/gif_blocks.h"
#include "imagefile/indexed.h"
#include "imagefile/lzw.h"
#include "imagefile/refusal.h"

namespace kelu {
namespace {

struct Image {
    int width = 0, height = 0;
    bool interlaced = false;
    GifControl control;
};

void read_table(ByteReader& in, int packed, RGB* palette)
{
    for (int i = 0; i < gif_table_entries(packed); ++i) {
        palette[i].r = static_cast<unsigned char>(in.byte() >> 2);
        palette[i].g = static_cast<unsigned char>(in.byte() >> 2);
        palette[i].b = static_cast<unsigned char>(in.byte() >> 2);
    }
}

/// False when the descriptor is cut or its sides can't be a bitmap's.
bool read_descriptor(ByteReader& in, Image& image, RGB* palette)
{
    in.skip(4); // place on the logical screen
    image.width = in.little16();
    image.height = in.little16();
    const int packed = in.byte();
    image.interlaced = packed & gif_packed_interlaced;
    read_table(in, packed, palette);
    return !in.ended() && bitmap_size_valid(image.width, image.height);
}

/// Lets the transparent index and index 0 change places: transparency ends at index 0, and no colour changes.
void move_transparency(const Image& image, Bytes& pixels, RGB* palette)
{
    if (image.control.transparent <= 0) return;
    palette[image.control.transparent] = palette[0];
    for (uint8_t& pixel : pixels) {
        if (pixel == image.control.transparent)
            pixel = 0;
        else if (pixel == 0)
            pixel = static_cast<uint8_t>(image.control.transparent);
    }
}

Bitmap build_bitmap(const Image& image, const Bytes& pixels, const RGB* palette)
{
    auto colors = palette_colors(palette);
    if (image.control.transparent >= 0) colors[0] = mask_magenta;
    Bitmap bitmap(image.width, image.height, colors[0]);
    if (!bitmap) return refuse(refusal::no_memory);
    const auto w = static_cast<std::size_t>(image.width);
    std::span<const uint8_t> left = pixels;
    for (const int y : gif_row_order(image.height, image.interlaced)) {
        const auto run = left.first(std::min(w, left.size()));
        std::transform(run.begin(), run.end(), row(bitmap, y), [&colors](uint8_t index) { return colors[index]; });
        left = left.subspan(run.size());
    }
    return bitmap;
}

} // namespace

Bitmap decode_gif(std::span<const uint8_t> bytes, RGB* palette)
{
    PALETTE own;
    if (!palette) palette = own;
    std::fill_n(palette, PAL_SIZE, RGB{});
    ByteReader in(bytes);
    if (!in.match("GIF") || !in.skip(3 + 4)) return refuse("Not a GIF file!"); // version, size of the logical screen
    const int packed = in.byte();
    in.skip(2); // background, aspect
    read_table(in, packed, palette);

    Image image;
    if (!find_gif_image(in, image.control) || !read_descriptor(in, image, palette)) return refuse(refusal::no_picture);
    const int minimum_size = in.byte();
    if (minimum_size < 1 || minimum_size > 8) return refuse("Bad code size!");
    const auto wanted = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
    if (!may_hold(in.left(), wanted, lzw_most_a_byte)) return refuse(refusal::ends_early);
    Bytes pixels;
    lzw_decode(in, minimum_size, wanted, pixels);
    if (pixels.empty()) return refuse(refusal::no_picture);
    if (pixels.size() < wanted)
        log_line("[ WARNING ] : GIF image ends early. Pixels = %d of %d", pixels.size(), wanted);
    move_transparency(image, pixels, palette);
    return build_bitmap(image, pixels, palette);
}

} // namespace kelu
