// SPDX-License-Identifier: MIT
// The PNG reader: the head, the chunks up to the picture's data, the pixels.
#include "imagefile/png.h"

#include "imagefile/indexed.h"
#include "imagefile/png_rows.h"
#include "imagefile/refusal.h"
#include <new>
#include <vector>

namespace kelu {
namespace {

struct Palette {
    RGB* colors = nullptr; ///< 256 entries
    bool present = false;
};

bool read_palette(ByteReader& in, std::size_t length, Palette& palette)
{
    if (length % 3 != 0) return png_fail("Palette chunk length not divisible by 3!");
    if (length < 3 || length > 3 * PAL_SIZE) return png_fail("Incorrect number of palette entries!");
    const auto levels = in.take(length);
    if (in.ended()) return png_fail("Cannot read palette!");
    std::fill_n(palette.colors, PAL_SIZE, RGB{});
    for (std::size_t i = 0; i < length / 3; ++i) {
        palette.colors[i].r = levels[3 * i] >> 2;
        palette.colors[i].g = levels[3 * i + 1] >> 2;
        palette.colors[i].b = levels[3 * i + 2] >> 2;
    }
    palette.present = true;
    return skip_png_chunk(in, 0);
}

using Parts = std::vector<std::span<const uint8_t>>;

/// Walks to the first IDAT and finds the data of its run of chunks; the head of the chunk behind the run is left in
/// `chunk`.
bool find_data(ByteReader& in, const PngForm& form, Palette& palette, PngChunk& chunk, Parts& parts)
{
    for (;;) {
        if (!read_png_chunk(in, chunk)) return false;
        if (chunk.type == "IDAT") break;
        const bool good =
            chunk.type == "PLTE" ? read_palette(in, chunk.length, palette) : skip_png_chunk(in, chunk.length);
        if (!good) return false;
    }
    if (form.color_type == PNG_INDEXED && !palette.present) return png_fail("Palette required but not found!");
    std::size_t size = 0;
    while (chunk.type == "IDAT") {
        const auto run = in.take(chunk.length);
        if (in.ended()) return png_fail("Cannot read image data!");
        if (!run.empty()) parts.push_back(run);
        size += run.size();
        if (!skip_png_chunk(in, 0) || !read_png_chunk(in, chunk)) return false;
    }
    return size >= 7 || png_fail("File without data!");
}

/// Walks the chunks behind the data, of which `chunk` is the first, up to IEND.
bool read_end(ByteReader& in, PngChunk chunk)
{
    while (chunk.type != "IEND") {
        if (!skip_png_chunk(in, chunk.length) || !read_png_chunk(in, chunk)) return false;
    }
    return chunk.length == 0 || png_fail("Incorrect IEND length!");
}

Bitmap decode(std::span<const uint8_t> bytes, RGB* colors)
{
    PALETTE own = {};
    Palette palette{colors ? colors : own};
    PngForm form;
    ByteReader in(bytes);
    PngChunk chunk;
    Parts parts;
    if (!read_png_header(in, form) || !find_data(in, form, palette, chunk, parts)) return {};
    const bool indexed = form.color_type == PNG_INDEXED;
    Bitmap bitmap = read_png_rows(form, indexed ? palette_colors(palette.colors) : png_greys(form.depth), parts);
    if (bitmap && !read_end(in, chunk)) bitmap.reset();
    return bitmap;
}

} // namespace

Bitmap decode_png(std::span<const uint8_t> bytes, RGB* palette)
{
    try {
        if (Bitmap picture = decode(bytes, palette)) return picture;
    } catch (const std::bad_alloc&) {
        png_error = "Cannot allocate memory!";
    }
    return refuse(png_error);
}

} // namespace kelu
