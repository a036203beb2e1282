// SPDX-License-Identifier: MIT
// Chunks, one call of zlib, the filters, the pixels.
#include "imagefile/png_rows.h"

#include "imagefile/png.h"
#include "imagefile/png_filters.h"
#include "runtime/pixels.h"
#include <bit>
#include <zlib.h>

namespace kelu {
namespace {

/// What deflate can shrink a run of bytes by at most.
constexpr std::size_t most_expansion = 1032;

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

/// Pixels of several channels of `bytes` bytes each.
void unpack_channels(int color_type, int bytes, const uint8_t* raw, int count, int* out, int dx)
{
    const auto with_alpha = [](int color, int alpha) {
        return static_cast<int>(static_cast<uint32_t>(alpha) << 24) | color;
    };
    for (int i = 0; i < count; ++i, out += dx) {
        switch (color_type) {
        case PNG_RGB:
            *out = pack_rgb(raw[0], raw[bytes], raw[2 * bytes]);
            break;
        case PNG_GREY_ALPHA:
            *out = with_alpha(pack_rgb(raw[0], raw[0], raw[0]), raw[bytes]);
            break;
        default:
            *out = with_alpha(pack_rgb(raw[0], raw[bytes], raw[2 * bytes]), raw[3 * bytes]);
        }
        raw += png_color_forms[color_type].channels * bytes;
    }
}

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

bool inflate_png_rows(const PngForm& p, std::span<const uint8_t> data, Bytes& raw)
{
    std::size_t size = 0;
    for (const Pass& pass : passes(p))
        size += pass.size(p);
    if (size / most_expansion > data.size()) return png_fail("Not enough data!");
    raw.resize(size);
    uLongf unpacked = static_cast<uLongf>(size);
    uLong used = static_cast<uLong>(data.size());
    const int result = uncompress2(raw.data(), &unpacked, data.data(), &used);
    if (result == Z_MEM_ERROR) return png_fail("Cannot allocate memory!");
    // A stream that is cut has used up its bytes; one that is damaged has stopped before.
    const bool cut = result == Z_DATA_ERROR && used == data.size() && unpacked < size;
    if (result != Z_OK && !cut) return png_fail("Cannot decompress data!");
    return unpacked == size || png_fail("Not enough data!");
}

bool unfilter_png(const PngForm& p, Bytes& raw)
{
    const auto step = static_cast<std::size_t>(std::max(1, p.channels() * p.depth / 8));
    uint8_t* at = raw.data();
    for (const Pass& pass : passes(p)) {
        if (pass.size(p) == 0) continue;
        const std::size_t size = p.row_bytes(pass.width(p));
        const Bytes zeros(size);
        const uint8_t* above = zeros.data();
        for (int y = 0; y < pass.height(p); ++y, at += size + 1) {
            if (!unfilter_row(at[0], at + 1, above, size, step)) return png_fail("Unknown filter!");
            above = at + 1;
        }
    }
    return true;
}

std::array<int, 256> png_greys(int depth)
{
    std::array<int, 256> greys{};
    const int levels = 1 << std::min(depth, 8);
    for (int i = 0; i < levels; ++i)
        greys[static_cast<std::size_t>(i)] = i * 255 / (levels - 1) * pack_rgb(1, 1, 1);
    return greys;
}

Bitmap build_png_bitmap(const PngForm& p, const std::array<int, 256>& colors, const Bytes& raw)
{
    Bitmap bitmap(p.width, p.height);
    if (!bitmap) {
        png_fail("Cannot allocate bitmap!");
        return {};
    }
    const uint8_t* at = raw.data();
    for (const Pass& pass : passes(p)) {
        if (pass.size(p) == 0) continue;
        const int count = pass.width(p);
        for (int y = pass.y; y < p.height; y += pass.dy, at += p.row_bytes(count) + 1) {
            int* out = row(bitmap, y) + pass.x;
            if (p.channels() == 1)
                unpack_samples(p.depth, colors, at + 1, count, out, pass.dx);
            else
                unpack_channels(p.color_type, p.depth / 8, at + 1, count, out, pass.dx);
        }
    }
    return bitmap;
}

} // namespace kelu
