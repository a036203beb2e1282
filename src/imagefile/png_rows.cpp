// SPDX-License-Identifier: MIT
// Chunks, and the rows of pictures as pixels.
#include "imagefile/png_rows.h"

#include "imagefile/png.h"
#include "imagefile/png_filters.h"
#include "imagefile/png_stream.h"
#include "runtime/pixels.h"
#include <algorithm>
#include <bit>

namespace kelu {
namespace {

/// Where a pass of the picture lies: its first pixel and the distance to the next one.
struct Pass {
    int x, y, dx, dy;

    int width(const PngForm& p) const { return (p.width - x + dx - 1) / dx; }
    int height(const PngForm& p) const { return (p.height - y + dy - 1) / dy; }
    /// Bytes of all filtered rows. A pass without columns has no rows either.
    std::size_t size(const PngForm& p) const
    {
        if (width(p) < 1 || height(p) < 1) return 0;
        return static_cast<std::size_t>(height(p)) * (p.row_bytes(width(p)) + 1);
    }
};
constexpr Pass whole_picture[] = {{0, 0, 1, 1}};
constexpr Pass adam7[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                          {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};

std::span<const Pass> passes(const PngForm& p)
{
    return p.interlaced ? std::span<const Pass>(adam7) : std::span<const Pass>(whole_picture);
}

/// Pixels of one channel, by the table of colours.
void unpack_samples(int depth, const std::array<int, 256>& colors, const uint8_t* raw, int count, int* out, int dx)
{
    if (depth >= 8) {
        for (int i = 0; i < count; ++i, out += dx, raw += depth / 8)
            *out = colors[raw[0]];
        return;
    }
    const int mask = (1 << depth) - 1;
    for (int i = 0, bit = 0; i < count; ++i, out += dx, bit += depth)
        *out = colors[static_cast<std::size_t>(raw[bit / 8] >> (8 - depth - bit % 8) & mask)];
}

uint32_t big_word(const uint8_t* raw)
{
    return uint32_t{raw[0]} << 24 | uint32_t{raw[1]} << 16 | uint32_t{raw[2]} << 8 | raw[3];
}

/// Pixels of three or four samples of a byte; `raw` may be read a byte beyond them.
template <int channels>
void unpack_bytes(const uint8_t* raw, int count, int* out, int dx)
{
    for (int i = 0; i < count; ++i, out += dx, raw += channels) {
        const uint32_t word = big_word(raw);
        *out = static_cast<int>(channels == 3 ? word >> 8 : std::rotr(word, 8));
    }
}

/// Pixels of several channels of `bytes` bytes each.
void unpack_channels(int color_type, int bytes, const uint8_t* raw, int count, int* out, int dx)
{
    if (bytes == 1 && color_type == PNG_RGB) return unpack_bytes<3>(raw, count, out, dx);
    if (bytes == 1 && color_type == PNG_RGBA) return unpack_bytes<4>(raw, count, out, dx);
    const bool grey = color_type == PNG_GREY_ALPHA;
    const int green = grey ? 0 : bytes, blue = grey ? 0 : 2 * bytes,
              step = png_color_forms[color_type].channels * bytes;
    for (int i = 0; i < count; ++i, out += dx, raw += step) {
        const int alpha = color_type == PNG_RGB ? 0 : raw[step - bytes];
        *out = static_cast<int>(static_cast<uint32_t>(alpha) << 24) | pack_rgb(raw[0], raw[green], raw[blue]);
    }
}

/// Unpacks the rows of a picture, pass by pass, into a bitmap.
class Rows {
public:
    Rows(const PngForm& form, const std::array<int, 256>& colors, BITMAP* bitmap, PngRowReader& rows)
        : form_(form), colors_(colors), bitmap_(bitmap), rows_(rows),
          step_(static_cast<std::size_t>(std::max(1, form.channels() * form.depth / 8)))
    {}

    bool read(const Pass& pass)
    {
        if (pass.size(form_) == 0) return true;
        const std::size_t size = form_.row_bytes(pass.width(form_));
        const Bytes zeros(size + 1);
        for (int y = pass.y; y < form_.height; y += pass.dy) {
            const PngRow bytes = rows_.next(size + 1);
            if (!bytes.bytes) return false;
            const int filter = bytes.bytes[0];
            const uint8_t* const above = y == pass.y ? zeros.data() + 1 : bytes.before + 1;
            if (y > 0 && repeats(filter, bytes.bytes + 1, size)) {
                std::copy_n(above, size, bytes.bytes + 1);
                if (!form_.interlaced) {
                    std::copy_n(row(bitmap_, y - 1), form_.width, row(bitmap_, y));
                    continue;
                }
            } else if (!unfilter_row(filter, bytes.bytes + 1, above, size, step_)) {
                return png_fail("Unknown filter!");
            }
            unpack(pass, bytes.bytes + 1, row(bitmap_, y) + pass.x);
        }
        return true;
    }

private:
    /// True for a row that is the same as the one above.
    static bool repeats(int filter, const uint8_t* bytes, std::size_t size)
    {
        return (filter == PNG_FILTER_UP || filter == PNG_FILTER_PAETH) && count_zeros(bytes, size) == size;
    }

    void unpack(const Pass& pass, const uint8_t* bytes, int* out) const
    {
        if (form_.channels() == 1)
            unpack_samples(form_.depth, colors_, bytes, pass.width(form_), out, pass.dx);
        else
            unpack_channels(form_.color_type, form_.depth / 8, bytes, pass.width(form_), out, pass.dx);
    }

    const PngForm& form_;
    const std::array<int, 256>& colors_;
    BITMAP* bitmap_;
    PngRowReader& rows_;
    std::size_t step_;
};

} // namespace

bool png_fail(const char* error)
{
    png_error = error;
    return false;
}

bool read_png_chunk(ByteReader& in, PngChunk& chunk)
{
    chunk.length = in.big32();
    if (in.ended()) return png_fail("Cannot read chunk length!");
    const auto letters = in.take(4);
    if (in.ended()) return png_fail("Cannot read chunk type!");
    chunk.type = {reinterpret_cast<const char*>(letters.data()), letters.size()};
    return true;
}

bool skip_png_chunk(ByteReader& in, std::size_t data_left)
{
    return in.skip(data_left + 4) || png_fail("Cannot fseek!");
}

bool read_png_header(ByteReader& in, PngForm& p)
{
    const auto signature = in.take(sizeof png_signature);
    if (in.ended()) return png_fail("File shorter than PNG signature!");
    if (!std::equal(signature.begin(), signature.end(), png_signature)) return png_fail("File signature mismatch!");

    PngChunk chunk;
    if (!read_png_chunk(in, chunk)) return false;
    if (chunk.type != "IHDR") return png_fail("First chunk must be of IHDR type!");
    if (chunk.length != 13) return png_fail("Incorrect IHDR length!");
    const uint32_t width = in.big32();
    if (in.ended()) return png_fail("Cannot read image width!");
    if (width == 0) return png_fail("Zero width!");
    const uint32_t height = in.big32();
    if (in.ended()) return png_fail("Cannot read image height!");
    if (height == 0) return png_fail("Zero height!");
    p.depth = in.byte();
    if (in.ended()) return png_fail("Cannot read image bit depth!");
    p.color_type = in.byte();
    if (in.ended()) return png_fail("Cannot read image color type!");
    if (p.color_type >= static_cast<int>(std::size(png_color_forms)) ||
        !std::has_single_bit(static_cast<unsigned>(p.depth)) || !(png_color_forms[p.color_type].depths & p.depth))
        return png_fail("Unsupported color type/depth combination!");

    const int compression = in.byte();
    if (in.ended()) return png_fail("Cannot read image compression method!");
    if (compression != 0) return png_fail("Unsupported compression method!");
    const int filter_method = in.byte();
    if (in.ended()) return png_fail("Cannot read filter method!");
    if (filter_method != 0) return png_fail("Unsupported filter method!");
    const int interlace = in.byte();
    if (in.ended()) return png_fail("Cannot read interlace method!");
    if (interlace > 1) return png_fail("Interlace not supported!");
    p.interlaced = interlace == 1;

    if (!bitmap_size_valid(width, height)) return png_fail("Cannot allocate bitmap!");
    p.width = static_cast<int>(width);
    p.height = static_cast<int>(height);
    return skip_png_chunk(in, 0);
}

std::array<int, 256> png_greys(int depth)
{
    std::array<int, 256> greys{};
    const int levels = 1 << std::min(depth, 8);
    for (int i = 0; i < levels; ++i)
        greys[static_cast<std::size_t>(i)] = i * 255 / (levels - 1) * pack_rgb(1, 1, 1);
    return greys;
}

Bitmap read_png_rows(const PngForm& p, const std::array<int, 256>& colors,
                     std::span<const std::span<const uint8_t>> parts)
{
    std::size_t size = 0, packed = 0;
    for (const Pass& pass : passes(p))
        size += pass.size(p);
    for (const auto part : parts)
        packed += part.size();
    const bool enough = size / deflate_most_a_byte <= packed;
    Bitmap bitmap = enough ? Bitmap::unfilled(p.width, p.height) : Bitmap();
    if (!bitmap) {
        png_fail(enough ? "Cannot allocate bitmap!" : "Not enough data!");
        return {};
    }
    PngRowReader reader(parts, size);
    Rows rows(p, colors, bitmap, reader);
    const bool whole = std::ranges::all_of(passes(p), [&](const Pass& pass) { return rows.read(pass); });
    if (!whole || !reader.finish()) bitmap.reset();
    return bitmap;
}

} // namespace kelu
