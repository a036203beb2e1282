// SPDX-License-Identifier: MIT
// The PNG writer: one IHDR, one PLTE for palette pictures, one IDAT with everything, one IEND.
//
// Rows of true-colour pictures are all filtered by the Paeth predictor, and packed at zlib's level 9.
#include "imagefile/png.h"

#include "imagefile/png_filters.h"
#include "imagefile/png_rows.h"
#include "imagefile/png_stream.h"
#include "imagefile/png_write.h"
#include <algorithm>
#include <cstring>
#include <functional>
#include <new>
#include <numeric>
#include <zlib.h>

namespace kelu {
namespace {

/// Colour types that are written, with the bytes of one pixel.
struct PixelForm {
    int color_type;
    int bytes;
};
constexpr PixelForm rgb_form = {2, 3};
constexpr PixelForm palette_form = {3, 1};
constexpr PixelForm rgba_form = {6, 4};

bool has_alpha(BITMAP* bitmap)
{
    for (int y = 0; y < bitmap->h; ++y) {
        const std::span pixels(row(bitmap, y), static_cast<std::size_t>(bitmap->w));
        const int bits = std::accumulate(pixels.begin(), pixels.end(), 0, std::bit_or<>());
        if (static_cast<uint32_t>(bits) >> 24 != 0) return true;
    }
    return false;
}

PixelForm form_of(BITMAP* bitmap)
{
    const int depth = bitmap_color_depth(bitmap);
    if (depth == 8) return palette_form;
    return depth == 32 && has_alpha(bitmap) ? rgba_form : rgb_form;
}

/// Pixels of 32 bits as plain bytes. RGB writes a byte beyond them.
template <int bytes>
void gather_pixels(const int* pixels, int count, uint8_t* out)
{
    for (int x = 0; x < count; ++x, out += bytes) {
        const auto pixel = static_cast<uint32_t>(pixels[x]);
        out[0] = static_cast<uint8_t>(pixel >> 16);
        out[1] = static_cast<uint8_t>(pixel >> 8);
        out[2] = static_cast<uint8_t>(pixel);
        out[3] = static_cast<uint8_t>(pixel >> 24);
    }
}

/// Writes row y of the bitmap as plain bytes in the order of the file, with room for one more behind them.
void gather_row(BITMAP* bitmap, int y, int pixel_bytes, uint8_t* out)
{
    const int depth = bitmap_color_depth(bitmap);
    if (depth == 8) {
        std::copy_n(bitmap->line[y], bitmap->w, out);
    } else if (depth == 32) {
        pixel_bytes == 4 ? gather_pixels<4>(row(bitmap, y), bitmap->w, out)
                         : gather_pixels<3>(row(bitmap, y), bitmap->w, out);
    } else {
        for (int x = 0; x < bitmap->w; ++x, out += pixel_bytes) {
            const int pixel = getpixel(bitmap, x, y);
            out[0] = static_cast<uint8_t>(getr_depth(depth, pixel));
            out[1] = static_cast<uint8_t>(getg_depth(depth, pixel));
            out[2] = static_cast<uint8_t>(getb_depth(depth, pixel));
        }
    }
}

/// True when a row of a 32-bit bitmap is the one above once more.
bool repeats(BITMAP* bitmap, int y)
{
    return y > 0 && bitmap_color_depth(bitmap) == 32 &&
           std::memcmp(bitmap->line[y], bitmap->line[y - 1], static_cast<std::size_t>(bitmap->w) * sizeof(int)) == 0;
}

/// All rows, each behind its filter byte, in one zlib stream; empty when that failed.
Bytes packed_rows(BITMAP* bitmap, PixelForm form, int filter)
{
    const auto step = static_cast<std::size_t>(form.bytes);
    const std::size_t size = static_cast<std::size_t>(bitmap->w) * step;
    // Two rows take turns; each has zeros to its left, where the predictor of the first pixel looks.
    Bytes rows[2] = {Bytes(step + size + 1), Bytes(step + size + 1)};
    Bytes filtered(1 + size);
    filtered[0] = static_cast<uint8_t>(filter);
    PngRowWriter out;
    for (int y = 0, turn = 0; y < bitmap->h; ++y) {
        if (!repeats(bitmap, y)) {
            turn = 1 - turn;
            gather_row(bitmap, y, form.bytes, rows[turn].data() + step);
            const uint8_t* const present = rows[turn].data() + step;
            if (filter == PNG_FILTER_NONE)
                std::copy_n(present, size, filtered.begin() + 1);
            else
                filter_paeth(present, rows[1 - turn].data() + step, size, step, filtered.data() + 1);
        } else if (filter != PNG_FILTER_NONE) {
            std::fill(filtered.begin() + 1, filtered.end(), uint8_t{0});
        }
        out.add(filtered);
    }
    return out.finish();
}

Bytes palette_data(const RGB* palette)
{
    PALETTE present;
    if (!palette) {
        get_palette(present);
        palette = present;
    }
    Bytes data;
    for (int i = 0; i < PAL_SIZE; ++i) {
        for (const int level : {palette[i].r, palette[i].g, palette[i].b})
            data.push_back(static_cast<uint8_t>(level << 2));
    }
    return data;
}

int fail(const char* error)
{
    png_fail(error);
    return -1;
}

int encode(BITMAP* bitmap, const RGB* palette, Bytes& out)
{
    if (!bitmap || bitmap->w < 1 || bitmap->h < 1) return fail("Width or height or both of the image are 0!");
    const PixelForm form = form_of(bitmap);
    const bool indexed = form.color_type == palette_form.color_type;
    const Bytes data = packed_rows(bitmap, form, indexed ? PNG_FILTER_NONE : PNG_FILTER_PAETH);
    if (data.empty()) return -1;
    ByteWriter file(out);
    file.append(png_signature);
    put_png_chunk(file, "IHDR", png_header_data(bitmap->w, bitmap->h, form.color_type));
    if (indexed) put_png_chunk(file, "PLTE", palette_data(palette));
    put_png_chunk(file, "IDAT", data);
    put_png_chunk(file, "IEND", {});
    return 0;
}

} // namespace

void put_png_chunk(ByteWriter& out, std::string_view type, std::span<const uint8_t> data)
{
    uLong crc = crc32(0, reinterpret_cast<const Bytef*>(type.data()), static_cast<uInt>(type.size()));
    if (!data.empty()) crc = crc32(crc, data.data(), static_cast<uInt>(data.size()));
    out.big32(static_cast<uint32_t>(data.size()));
    out.text(type);
    out.append(data);
    out.big32(static_cast<uint32_t>(crc));
}

Bytes png_header_data(int width, int height, int color_type)
{
    Bytes data;
    ByteWriter head(data);
    head.big32(static_cast<uint32_t>(width));
    head.big32(static_cast<uint32_t>(height));
    head.byte(8); // bits a sample
    head.byte(color_type);
    head.fill(3); // compression, filter method, interlace
    return data;
}

Bytes packed_rgba(BITMAP* bitmap)
{
    Bytes by_paeth = packed_rows(bitmap, rgba_form, PNG_FILTER_PAETH);
    Bytes plain = packed_rows(bitmap, rgba_form, PNG_FILTER_NONE);
    return plain.empty() || (!by_paeth.empty() && by_paeth.size() < plain.size()) ? std::move(by_paeth)
                                                                                  : std::move(plain);
}

int encode_png(BITMAP* bitmap, const RGB* palette, Bytes& out)
{
    const std::size_t before = out.size();
    try {
        return encode(bitmap, palette, out);
    } catch (const std::bad_alloc&) {
        out.resize(before);
        return fail("Cannot allocate memory!");
    }
}

} // namespace kelu
